#!/usr/bin/env python3
"""Fails the system calls of runs of varnisto-cli, one a run, kills runs, and judges the files that are left.

A run is a transaction: it writes its outputs to temporaries (".NAME.PID-LETTERS.varnisto" beside NAME) and renames them
when every step has succeeded. So each file is whole afterwards, "old" as it was or "new" as the run was to make it:

  status 0         all outputs are new; one that is worth a notice only may be old when standard error names it
  other status     all files are old; once the renames have begun a mixed set will do when standard error names what is
                   new ("told"), and behind them the complete new set
  SIGTERM, SIGINT  all old or all new
  SIGKILL          mixed between the renames only (counted); the next run succeeds and clears up

No temporary and no scratch folder stays, but after SIGKILL or when the call that takes it away was failed: then the
next run does. No run takes more than ten seconds or dies by a signal that nobody sent.

The calls are learnt from an undisturbed run; those before the first that names its folder are the system's loader and
are left alone. The same seed chooses the same faults. Exit status: 0 all runs kept the rules, 1 a loss, 2 wrong usage.
"""
import argparse
import collections
import concurrent.futures
import ctypes
import dataclasses
import itertools
import math
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SOURCE = pathlib.Path(__file__).resolve().parent.parent
TIME_LIMIT = 10  # seconds
ABSENT, FOLDER = "absent", "folder"  # stand for the bytes of what is no file
SIGNALS = ("SIGKILL", "SIGTERM", "SIGINT")

# The errors that a call can meet; with "+" every later call of that name meets it too.
ERRORS = {call: errors.split() for calls, errors in {
    "openat": "EACCES EMFILE ENOSPC EMFILE+",
    "read": "EIO EINTR",
    "pread64 readv ftruncate statfs": "EIO",
    "write pwrite64 writev": "ENOSPC EIO EINTR ENOSPC+",
    "copy_file_range sendfile": "ENOSPC EIO EINVAL",
    "fallocate": "ENOSPC EOPNOTSUPP",
    "close": "EIO ENOSPC EINTR",
    "fsync fdatasync": "EIO ENOSPC",
    "rename renameat renameat2": "EACCES EIO ENOSPC EACCES+",
    "link linkat": "EPERM EMLINK",
    "unlink unlinkat": "EACCES EIO EACCES+",
    "rmdir": "EACCES ENOTEMPTY",
    "mkdir mkdirat": "EACCES ENOSPC ENOSPC+",
    "chmod fchmod fchmodat chown fchown": "EPERM EIO",
    "flock": "ENOLCK EINTR EAGAIN ENOLCK+",
    "fcntl": "ENOLCK EINVAL",
    "getdents64": "EIO ENOENT",
    "readlink stat lstat statx access faccessat faccessat2": "EACCES EIO",
    "newfstatat fstat": "EACCES EIO ENOMEM",
    "getcwd": "ENOENT",
    "lseek": "EIO EINVAL",
    "dup pipe2": "EMFILE",
    "mmap": "ENOMEM ENOMEM+",
    "munmap mprotect mremap madvise": "ENOMEM",
    "getrandom clone clone3": "EAGAIN",
    "exit exit_group rt_sigreturn futex getpid gettid getuid geteuid getgid getegid": "",
}.items() for call in calls.split()}
OTHER_ERRORS = ("EIO", "ENOMEM")


def log_of(path, first=None, times=1):
    """The title line of a log and its first lines, these repeated."""
    title, *lines = (SOURCE / path).read_bytes().splitlines(keepends=True)
    return title + b"".join(lines[:first]) * times


def folder_of(path):
    return {file.name: file.read_bytes() for file in (SOURCE / path).iterdir() if file.is_file()}


@dataclasses.dataclass(frozen=True, eq=False)
class Scenario:
    name: str
    command: str  # behind --app-dir; "_" is a blank in a word
    inputs: dict  # files in work/
    outputs: str  # new at the end; names below the folder of the run
    notices: str = ""  # outputs that are worth a notice only
    debris: str = ""  # files of older versions: gone at the end, but no run fails for them
    earlier: bool = True  # earlier outputs are there

    def files(self):
        planted = self.outputs.split() + self.notices.split() + self.debris.split() if self.earlier else []
        files = {name: f"Earlier {name}\r\n".encode() for name in planted}
        files |= {f"program/{name}": data for name, data in folder_of("data").items()}
        files["program/Varnisto.ini"] = (SOURCE / "examples/Varnisto.ini").read_bytes()
        return files | {f"work/{name}": data for name, data in self.inputs.items()}


REPORT, CONTEST = "program/check_Cabrillo.txt", "program/cont_name.txt"
PAIR = "work/QX1ABC.cbr work/QX1ABC.log"
OLD_STEPS = "work/QX1ABC.cbr_1 work/QX1ABC.log2 work/in_name.000"
CQWW = folder_of("examples/cqww-cw")
SMALL = CQWW | {"QX1ABC.ALL": log_of("examples/cqww-cw/QX1ABC.ALL", first=40)}
LONG = CQWW | {"QX1ABC.ALL": log_of("examples/cqww-cw/QX1ABC.ALL", times=5)}  # several writes an output

SCENARIOS = {scenario.name: scenario for scenario in (
    Scenario("plain", "convert work/QX1ABC.ALL", SMALL, PAIR, REPORT, OLD_STEPS),
    Scenario("first-time", "convert work/QX1ABC.ALL", SMALL, PAIR, REPORT, earlier=False),
    Scenario("utc-eqsl", "convert --utc --eqsl work/QX1ABC.ALL", SMALL, PAIR + " work/QX1ABC.adi", REPORT),
    Scenario("long", "convert --utc --eqsl --json work/QX1ABC.ALL", LONG, PAIR + " work/QX1ABC.adi", REPORT),
    Scenario("waedc", "convert --utc --qtc work/QX1ABC.ALL", folder_of("tests/data/waedc/in"),
             PAIR + " work/QX1ABC.qlg", REPORT),
    Scenario("no-summary", "convert --contest CQWW_DX_Contest work/cqww.ALL",
             folder_of("tests/data/no_summary/cqww/in"), PAIR + " work/cqww_za2c.zsm", f"{REPORT} {CONTEST}"),
    Scenario("to-zlog", "to-zlog work/QX1ABC.cbr", folder_of("tests/data/expected/cqww-cw"), "work/QX1ABC_c2z.txt"),
    Scenario("settings", "settings NAME=Hanako_Mihon CLUB=Mihon_Club", {}, "program/Varnisto.ini"),
)}


@dataclasses.dataclass(frozen=True)
class Deed:
    """What is done to a run; as text CALL:HOW:when=WHEN."""

    scenario: Scenario
    call: str  # name of a system call, "time" for a signal at a moment
    how: str  # error=EIO, retval=0, signal=SIGTERM
    when: str  # which call of that name, with "+" the later ones too; seconds for "time"

    def __str__(self):
        return f"{self.call}:{self.how}:when={self.when}"

    signal = property(lambda self: self.how.partition("signal=")[2])
    lasting = property(lambda self: self.when.endswith("+"))
    number = property(lambda self: int(self.when.rstrip("+")))


Ending = collections.namedtuple("Ending", "status errors struck")  # status None: stopped; struck: lines of the trace
Call = collections.namedtuple("Call", "name number line paths")


def calls_in(trace):
    """The calls of a trace, numbered among those of their name, with the last part of each path argument."""
    numbers = collections.Counter()
    calls = []
    for line in trace.read_text(errors="replace").splitlines():
        if match := re.match(r"\d+ +(\w+)\(", line):
            numbers[match[1]] += 1
            paths = [os.path.basename(path) for path in re.findall(r'"([^"]*)"', line)]
            calls.append(Call(match[1], numbers[match[1]], line, paths))
    return calls


def tree(root):
    """What lies below `root`: name to bytes, in which the name of `root` is made neutral."""
    found = {}
    for path in root.rglob("*"):
        data = FOLDER if path.is_dir() else path.read_bytes().replace(bytes(root), b"ROOT")
        found[str(path.relative_to(root))] = data
    return found


class Bench:
    """Runs the program, each time in a new folder."""

    def __init__(self, program, folder):
        self.program, self.folder, self.numbers = program, folder, itertools.count(1)

    def lay_out(self, scenario):
        root = self.folder / f"run{next(self.numbers):06}"
        for name in ("program", "work", "tmp"):
            (root / name).mkdir(parents=True)
        for name, data in scenario.files().items():
            (root / name).write_bytes(data)
        return root

    def start(self, root, scenario, wrapper):
        words = [word.replace("_", " ") for word in scenario.command.split()]
        words = [str(root / word) if word.startswith("work/") else word for word in words]
        environment = {"PATH": os.environ["PATH"], "HOME": str(root), "TMPDIR": str(root / "tmp"), "TZ": "UTC0",
                       "LC_ALL": "C.UTF-8", "SOURCE_DATE_EPOCH": "1764500000", "ASAN_OPTIONS": "detect_leaks=0"}
        return subprocess.Popen([*wrapper, self.program, "--app-dir", str(root / "program"), *words], cwd=root,
                                env=environment, start_new_session=True, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def finish(self, process, struck=()):
        try:
            _, errors = process.communicate(timeout=TIME_LIMIT)
            return Ending(process.returncode, errors.decode(errors="replace"), struck)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()
            return Ending(None, "", struck)

    def run(self, root, scenario):
        return self.finish(self.start(root, scenario, ()))

    def run_until(self, root, deed):
        process = self.start(root, deed.scenario, ())
        time.sleep(float(deed.when))
        struck = ["the program"] if process.poll() is None else []
        process.send_signal(signal.Signals[deed.signal])
        return self.finish(process, struck)

    def run_traced(self, root, scenario, *options):
        trace = root.with_suffix(".trace")
        strace = ("strace", "-f", "-y", "-e", "signal=none", "-o", str(trace), *options)
        ending = self.finish(self.start(root, scenario, strace))
        if not trace.exists():
            sys.exit(f"strace {' '.join(options)}: {ending.errors}")
        return ending, calls_in(trace)

    def run_failing(self, root, deed):
        options = ("--seccomp-bpf", "-e", f"trace={deed.call}", "-e", f"inject={deed}")
        ending, calls = self.run_traced(root, deed.scenario, *options)
        last = math.inf if deed.lasting else deed.number
        return ending._replace(struck=[call.line for call in calls if deed.number <= call.number <= last])


def is_temporary(name):
    return re.fullmatch(r"\..+\.\d+-[A-Za-z0-9]+\.varnisto", name) is not None


class Facts:
    """What an undisturbed run does: files before and after, its calls, and where among them things happen."""

    def __init__(self, bench, scenario):
        self.scenario = scenario
        root, timed = bench.lay_out(scenario), bench.lay_out(scenario)
        self.old = tree(root)
        ending, self.calls = bench.run_traced(root, scenario)
        self.new = tree(root)
        begin = time.monotonic()
        bench.run(timed, scenario)
        self.seconds = time.monotonic() - begin
        self.problems = list(self.check(ending, tree(timed)))
        self.index = {(call.name, call.number): at for at, call in enumerate(self.calls)}
        self.find_places(str(root), {os.path.basename(name) for name in scenario.outputs.split()})

    def find_places(self, root, outputs):
        def places(wanted):
            return [at for at, call in enumerate(self.calls) if wanted(call)] or [math.inf]

        self.start = places(lambda call: call.name != "execve" and root in call.line)[0]
        self.first_output = places(lambda call: "O_CREAT" in call.line and
                                   (is_temporary(call.paths[0]) or call.paths[0] in outputs))[0]
        renames = places(lambda call: call.name.startswith("rename") and is_temporary(call.paths[0]))
        self.first_rename = renames[0]
        self.last_rename = max(at for at in renames if at == math.inf or self.calls[at].paths[-1] in outputs)

    def check(self, ending, again):
        if ending.status != 0:
            yield f"status {ending.status} without any fault: {ending.errors[-300:]}"
        if unwritten := [name for name in self.scenario.outputs.split() if self.old.get(name) == self.new.get(name)]:
            yield "not written without any fault: " + ", ".join(unwritten)
        if left := self.new.keys() - self.old.keys() - {*self.scenario.outputs.split(), *self.scenario.notices.split()}:
            yield "left behind without any fault: " + ", ".join(sorted(left))
        if again != self.new:
            yield "two undisturbed runs differ"


class Case:
    """One disturbed run and its judgement."""

    def __init__(self, facts, deed, ending, found):
        self.facts, self.deed, self.ending = facts, deed, ending
        self.told = self.between = False
        self.at = facts.first_rename if deed.call == "time" else facts.index[deed.call, deed.number]
        known = facts.old.keys() | facts.new.keys()
        states = {name: [files.get(name, ABSENT) for files in (found, facts.old, facts.new)] for name in known}
        self.torn = {name for name, (now, old, new) in states.items() if now not in (old, new)}
        self.fresh = {name for name, (now, old, new) in states.items() if old != new == now}
        self.stale = {name for name, (now, old, new) in states.items() if new != old == now}
        self.stale -= {*deed.scenario.debris.split()}
        self.notices = {*deed.scenario.notices.split()}
        self.strays = {name: found[name] for name in found.keys() - known if os.path.dirname(name) in facts.old}
        self.losses = [f"{kind}: {', '.join(sorted(names))}" for kind, names in self.judge() if names]
        self.leftovers = [name for name in self.strays if not self.excused(name)]
        if self.leftovers:
            self.losses.append("leaves behind: " + ", ".join(sorted(self.leftovers)))

    def judge(self):
        """What is wrong, as pairs of kind and names."""
        status = self.ending.status
        yield "neither old nor new", self.torn
        if status is None:
            yield "hangs", [f"still runs after {TIME_LIMIT} s"]
        elif status == 0:
            yield "status 0, yet old", {name for name in self.stale if name not in self.notices or not self.named(name)}
        elif self.deed.signal:
            yield from self.judge_stopped()
        else:
            yield from self.judge_failed()

    def judge_failed(self):
        status = self.ending.status
        if status < 0:
            yield "died by", [signal.Signals(-status).name]
        # A disk that stays full may first cost a notice and stop the report only.
        if (self.at > self.facts.last_rename or self.deed.lasting) and self.stale <= self.notices:
            return
        if self.at < self.facts.first_rename:
            yield f"status {status}, yet new", self.fresh
            return
        untold = {name for name in self.fresh if name in self.facts.new and not self.named(name)}
        yield f"status {status}, new and not told", untold
        self.told = bool(self.fresh) and not untold

    def judge_stopped(self):
        if not self.fresh or not self.stale:
            return
        self.between = self.deed.signal == "SIGKILL" and self.facts.first_rename <= self.at < math.inf
        if not self.between:
            yield f"mixed after {self.deed.signal}, new", self.fresh

    def named(self, name):
        """Standard error names the file; where every write fails nothing can be told."""
        return os.path.basename(name) in self.ending.errors or self.deed.call == "write" and self.deed.lasting

    def excused(self, stray):
        """A kill, or a failed call that was to remove this; of a folder, any call that names it."""
        is_removal = self.deed.call in ("unlink", "unlinkat", "rmdir") or self.strays[stray] == FOLDER
        is_struck = is_removal and any(os.path.basename(stray) in line for line in self.ending.struck)
        return is_struck and not self.deed.signal or self.deed.signal == "SIGKILL"

    def judge_next(self, ending, found):
        """The ordinary run that follows."""
        if ending.status != 0:
            self.losses.append(f"next run: status {ending.status}: {ending.errors[-300:]}")
        if left := found.keys() - self.facts.old.keys() - self.facts.new.keys():
            self.losses.append("next run leaves: " + ", ".join(sorted(left)))
            self.leftovers += left
        if wrong := [name for name in self.facts.new if found.get(name) != self.facts.new[name]]:
            self.losses.append("next run, not new: " + ", ".join(sorted(wrong)))


def disturb(bench, facts, deed, keep=False):
    """Does the deed and judges the run; none when the run ended before."""
    root = bench.lay_out(deed.scenario)
    ending = (bench.run_until if deed.call == "time" else bench.run_failing)(root, deed)
    case = Case(facts, deed, ending, tree(root)) if ending.struck else None
    if keep:
        return case
    if case and (case.strays or deed.signal == "SIGKILL"):
        case.judge_next(bench.run(root, deed.scenario), tree(root))
    shutil.rmtree(root)
    root.with_suffix(".trace").unlink(missing_ok=True)
    if not case and deed.call == "time":  # too late: earlier
        return disturb(bench, facts, dataclasses.replace(deed, when=f"{float(deed.when) * 0.7:.6f}"))
    return case


def gives_up_lock(facts, call):
    path = call.line.partition("<")[2].partition(">")[0]
    is_locked = any(other.name == "flock" and f"<{path}>" in other.line for other in facts.calls)
    closes_lock = call.name == "close" and is_locked and not is_temporary(os.path.basename(path))
    return closes_lock or call.name == "flock" and "LOCK_UN" in call.line


def failures_of(facts, call):
    """Every way in which the call can fail."""
    if call.name == "brk":  # tells a failure by its result
        yield "retval=0", str(call.number)
    elif not gives_up_lock(facts, call):  # a call that is failed is not made: the lock would stay, as it never does
        for error in ERRORS.get(call.name, OTHER_ERRORS):
            yield f"error={error.rstrip('+')}", f"{call.number}{'+' * error.endswith('+')}"


def stops_of(_, call):
    return ((f"signal={name}", str(call.number)) for name in SIGNALS)


def choose(all_facts, ways_of, count, seed):
    """So many deeds, two thirds behind the first opened output as far as there are. Each deed draws its own lot: a call
    more or less changes no other choice."""
    sides = {True: [], False: []}
    for facts in all_facts:
        for at, call in enumerate(facts.calls):
            if at >= facts.start:
                deeds = [Deed(facts.scenario, call.name, *way) for way in ways_of(facts, call)]
                sides[at >= facts.first_output] += deeds
    for deeds in sides.values():
        deeds.sort(key=lambda deed: random.Random(f"{seed} {deed.scenario.name} {deed}").random())
    behind = sides[True][:max(math.ceil(count * 2 / 3), count - len(sides[False]))]
    return behind + sides[False][:count - len(behind)]


def timed_stops(all_facts, count, seed):
    chance = random.Random(seed)
    for facts in itertools.islice(itertools.cycle(all_facts), count):
        yield Deed(facts.scenario, "time", f"signal={chance.choice(SIGNALS)}", f"{chance.random() * facts.seconds:.6f}")


def numbers_of(case):
    kind = "kills" if case.deed.signal else "faults"
    behind = kind == "faults" and case.at >= case.facts.first_output
    return {kind: 1, "behind first output": behind, "told": case.told, "between renames": case.between,
            "leftovers": bool(case.leftovers), "losses": bool(case.losses)}


def report(all_facts, cases):
    """The table and every loss; answers the number of runs with a loss."""
    titles = ("faults", "behind first output", "told", "kills", "between renames", "leftovers", "losses")
    rows = {facts.scenario.name: collections.Counter(losses=len(facts.problems)) for facts in all_facts}
    for case in cases:
        rows[case.deed.scenario.name].update(numbers_of(case))
    rows["all"] = sum(rows.values(), collections.Counter())
    print(f"{'scenario':12}", *titles, sep="  ")
    for name, row in rows.items():
        print(f"{name:12}", *(f"{row[title]:{len(title)}}" for title in titles), sep="  ")
    for facts in all_facts:
        print(*(f"LOSS {facts.scenario.name}: {problem}\n" for problem in facts.problems), sep="", end="")
    for case in cases:
        again = f"     tools/faults.py --scenario {case.deed.scenario.name} --only {case.deed}\n"
        print(*(f"LOSS {loss}\n{again}" for loss in case.losses), sep="", end="")
    return rows["all"]["losses"]


def run_all(bench, all_facts, chosen):
    sound = {facts.scenario: facts for facts in all_facts if not facts.problems}
    timed = chosen.kills // 2
    deeds = [*choose(sound.values(), failures_of, chosen.faults, chosen.seed),
             *choose(sound.values(), stops_of, chosen.kills - timed, chosen.seed),
             *timed_stops(sound.values(), timed, chosen.seed)]
    with concurrent.futures.ThreadPoolExecutor(chosen.jobs) as pool:
        cases = list(pool.map(lambda deed: disturb(bench, sound[deed.scenario], deed), deeds))
    losses = report(all_facts, [case for case in cases if case])
    if idle := cases.count(None):
        print(f"{idle} found nothing to strike")
    return losses


def run_one(bench, facts, text):
    """One deed again; its files stay."""
    call, how, when = text.split(":")
    case = disturb(bench, facts, Deed(facts.scenario, call, how, when.removeprefix("when=")), keep=True)
    lines = ["nothing was struck"]
    if case:
        lines = [*case.ending.struck, f"status {case.ending.status}", case.ending.errors, *case.losses]
    print(*lines, f"files: {bench.folder}", sep="\n")
    return len(case.losses) if case else 0


def options():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--faults", type=int, default=3000, help="how many calls to fail (default 3000)")
    parser.add_argument("--kills", type=int, default=240, help="how many runs to kill, half of them by the clock (240)")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--scenario", action="append", choices=SCENARIOS, help="only this one; repeatable")
    parser.add_argument("--program", type=pathlib.Path, default=SOURCE / "build/cli/src/cli/varnisto-cli")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--only", metavar="FAULT", help="this fault of the one scenario again; keeps the files")
    chosen = parser.parse_args()
    if not shutil.which("strace"):
        parser.error("no strace: tools/dependencies.sh faults")
    if not os.access(chosen.program, os.X_OK):
        parser.error(f"no {chosen.program}: cmake --preset cli && cmake --build --preset cli")
    if chosen.only and len(chosen.scenario or ()) != 1:
        parser.error("--only needs one --scenario")
    return chosen


def main():
    chosen = options()
    signal.signal(signal.SIGINT, signal.default_int_handler)  # in the background it is ignored, by the runs too
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    ctypes.CDLL(None).personality(0x0040000)  # no random addresses: memory calls come in the same order each time
    folder = pathlib.Path(tempfile.mkdtemp(prefix="faults-")).resolve()
    try:
        bench = Bench(str(chosen.program.resolve()), folder)
        all_facts = [Facts(bench, SCENARIOS[name]) for name in chosen.scenario or SCENARIOS]
        losses = run_one(bench, all_facts[0], chosen.only) if chosen.only else run_all(bench, all_facts, chosen)
    finally:
        if not chosen.only:
            shutil.rmtree(folder)
    return 1 if losses else 0


if __name__ == "__main__":
    sys.exit(main())
