#include "core/main_form.h"

namespace varnisto {

MainForm::MainForm() {
  lblIn_.text = "入力ﾌｧｲﾙ名 ：";
  kaishi.caption = "開始";
  owari.caption = "終了";
  kaishi.tip = "ﾌﾟﾛｸﾞﾗﾑの実行を開始する";
  kaishi.enabled = false;
  owari.tip = "ﾌﾟﾛｸﾞﾗﾑを終了します";
  cmdReSet.caption = "再ｾｯﾄ";
  cmdReSet.tip = " CATEGORY-OVERLAY の再ｾｯﾄが出来ます。";
  cmdReSelect.caption = "再選択";
  cmdReSelect.tip = "参加ｺﾝﾃｽﾄ、バンド、モードの再選択が出来ます。";
  cmdRe_write_zlog_zsm.caption = "zsm 書き換え";
  cmdRe_write_zlog_zsm.tip = "Category  の Operater 部分を書換ます。\r\nこのボタンの下側に表示されます。";
  cmdMail_Send.caption = "e-mail の送信";
  cmdMail_Send_test.caption = "e-mail 送信テスト";
  cmdMail_Send_test.tip = "自分宛に送信テストをします。";

  Option1 = option_group(" Power ", {"HIGH", "LOW", "QRP"});
  Option3 = option_group(" Operator ", {"SINGLE-OP", "SINGLE-OP-ASSISTED", "SCHOOL-CLUB", "MULTI-ONE ",
                                        "MULTI-TWO ", "MULTI-MULTI ", "CHECKLOG"});

  Check1.caption = "Editor 使用";
  Check1.tip = "レ点マークを付けて置くと各ファイルの編集が出来ます。";
  Check2.caption = "Mode 及びｺﾝﾃｽﾄ名を\r\nRTTY に変更";
  Check3.caption = "for eQSL";
  Check3.tip = "eQSL．cc 用の ADIF ﾌｧｲﾙ を作成します。";
  Check4.caption = "memo 欄 の周波数を取得して転記";
  Check4.tip = "Band欄に交信周波数を転記します。";
  Check5.caption = "1．9 は  1．8 に変更 ";
  Check6.caption = "ＪＳＴ を\r\nＵＴＣ に変換";
  Check6.tip = "ﾃﾞｰﾀ の ［ 時間 －９ ］ の計算ををします。";
  Check7.caption = "/ 転記";
  Check7.tip = "コールサインに[/]を含むものはｅＱＳＬ．ｃｃ用では転記方法を選択";
  Check8.caption = "WAEDC のQTC を CBR に追加記入する。";
  Check9.caption = "e-mail Subject は*.cbr と同じにする";

  mnuOpen_file.caption = "ﾌｧｲﾙ";
  mnuRecent.caption = "最近使ったﾌｧｲﾙ";
  mnuCFG.caption = "環境";
  mnuMake.caption = "ｉｎｉ 作成";
  mnuDisp.caption = "表示";
  mnuDisp2_.caption = "ﾛｸﾞ";
  mnu_edit.caption = "編集";
  mnuWeb.caption = "Web";
  mnuHelp.caption = "ﾍﾙﾌﾟ";
  mnuDispHelp.caption = "ﾍﾙﾌﾟの表示";
  mnuVESTRA.caption = "VESTRA";
  mnuARRL.caption = "ARRL";
  mnuCQWW.caption = "CQWW";
  mnuWAEDC.caption = "WAEDC";
  mnuAA.caption = "All Asian DX";
  mnuJIDX.caption = "JIDX";
  mnuCabrillo.caption = "Cabrillo";
  mnuzLog.caption = "zLog";
  mnuHamlog.caption = "Hamlog";
  mnuKOVRIN.caption = "KOVRIN";
  mnuWeb_URL.caption = "Web URL";
  mnuOpen_all.caption = "開く ＊．all";
  mnuOpen_zlo.caption = "開く ＊．zlo";
  mnuOpen_txt.caption = "開く ＊．txt";
  mnuOpen_bin.caption = "開く ＊．bin";
  mnuOpen_cbr.caption = "開く ＊．cbr";
  mnuDisp2_in.caption = "入力ﾌｧｲﾙ";
  all_Disp_z2a.caption = "表示 _z2a ．all";
  txt_Disp_c2t.caption = "表示 _c2t. ．txt";
  mnuDisp2_out1.caption = "出力 * ．cbr";
  mnuDisp2_out3.caption = "出力 * ．log";
  mnuDisp2_out2.caption = "出力 * ．adi";
  mnuDisp2_Qtc.caption = "QTC Log";
  mnuZsm.caption = "ｻﾏﾘｰ";
  zsm_Disp_zsm.caption = "確認 ( *．zsm)";
  zsm_Disp_za2c.caption = "確認 ( *_za2c．zsm)";
  zsm_Disp_zz2c.caption = "確認 ( *_zz2c．zsm)";
  zsm_Disp_ct2c.caption = "確認 ( *_ct2c．zsm)";
  zsm_Disp_cb2c.caption = "確認 ( *_cb2c．zsm)";
  mnu_contest_name.caption = "contest_name.cfg";
  mnu_email_add.caption = "e_mail_add.cfg";
  mnuVer.caption = "バージョン";
  mnuDebug.caption = "ﾃﾞﾊﾞｯｸﾞ・ﾓｰﾄﾞ";

  for (MenuItem* item :
       {&mnuDisp2_in, &all_Disp_z2a, &txt_Disp_c2t, &mnuDisp2_out1, &mnuDisp2_out3, &mnuDisp2_out2,
        &mnuDisp2_Qtc, &mnuZsm, &zsm_Disp_zsm, &zsm_Disp_za2c, &zsm_Disp_zz2c, &zsm_Disp_ct2c, &zsm_Disp_cb2c,
        &mnu_edit, &mnu_mc, &mnu_contest_name, &mnu_email_add})
    item->enabled = false;
  for (Button* button : {&cmdReSet, &cmdReSelect, &cmdRe_write_zlog_zsm, &cmdMail_Send, &cmdMail_Send_test})
    button->enabled = false;
}

}  // namespace varnisto
