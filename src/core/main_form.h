#pragma once
// The main window's controls as data. Routines of every layer set them, whether a window shows them or not.

#include <array>

#include "core/controls.h"

namespace varnisto {

struct MainForm {
  MainForm();

  std::string caption;

  TextBox Text1;
  Label lblIn, lblIn_, lblShori, lblPower, lblPad_use, lblGet_zsm1, lblGet_zsm2, lblGet_zsm3, lblGet_zsm4;
  Label Label2;       ///< the claimed overlay category
  Label lblCategory;  ///< "CATEGORY: ..." as chosen in the selection dialog
  Label lblYusen;     ///< "設定優先" while the dialog's choices win
  Button kaishi, owari, cmdReSet, cmdReSelect, cmdRe_write_zlog_zsm, cmdMail_Send, cmdMail_Send_test;
  OptionGroup Option1;  ///< power: HIGH, LOW, QRP
  OptionGroup Option3;  ///< operator: SINGLE-OP .. CHECKLOG
  CheckBox Check1, Check2, Check3, Check4, Check5, Check6, Check7, Check8, Check9;
  MenuItem mnuOpen_file, mnuOpen_all, mnuOpen_zlo, mnuOpen_txt, mnuOpen_bin, mnuOpen_cbr;
  MenuItem mnuRecent;                    ///< submenu of the logs opened last
  std::array<MenuItem, 8> mnuRecent_in;  ///< its entries, newest first; captions are paths
  MenuItem mnuCFG, mnuMake;
  MenuItem mnuDisp, mnuDisp2_, mnuDisp2_in, all_Disp_z2a, txt_Disp_c2t, mnuDisp2_out1, mnuDisp2_out3,
      mnuDisp2_out2, mnuDisp2_Qtc;
  MenuItem mnuZsm, zsm_Disp_zsm, zsm_Disp_za2c, zsm_Disp_zz2c, zsm_Disp_ct2c, zsm_Disp_cb2c;
  MenuItem mnu_edit, mnu_mc, mnu_contest_name, mnu_email_add;
  MenuItem mnuVESTRA, mnuARRL, mnuCQWW, mnuWAEDC, mnuAA, mnuJIDX, mnuCabrillo, mnuzLog, mnuHamlog, mnuKOVRIN,
      mnuWeb_URL;
  MenuItem mnuWeb, mnuHelp, mnuVer, mnuDispHelp, mnuDebug, mnuDebug_mode;
};

}  // namespace varnisto
