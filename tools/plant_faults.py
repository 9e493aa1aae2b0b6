#!/usr/bin/env python3
"""Plants single-line faults in the product code, one at a time, and tells which of them the tests notice.

A rule counts as tested when a fault in it makes a test fail. The faults are drawn at random (same seed, same faults)
from the lines of src/ that can hold a rule: no includes, comments, static_asserts, bare declarations, lines of the
debug log. Each goes into a private copy of the tree under build/, never into the working tree; the copy is built
without optimisation, and its tests run until one fails. A fault that the compiler refuses is counted apart, another
one drawn.

A fault that nobody notices need not be a gap: the changed line may do the same as before or only cost time.

Exit status: 0 nine in ten or more were noticed, 1 fewer, 2 wrong usage, or a copy that fails without a fault.
"""
import argparse
import collections
import os
import pathlib
import random
import re
import resource
import signal
import subprocess
import sys
import time

SOURCE = pathlib.Path(__file__).resolve().parent.parent
COPY = SOURCE / "build" / "plant_faults"
TREE, BUILD, SCRATCH = COPY / "tree", COPY / "build", COPY / "tmp"
ENOUGH = 0.9  # the share of faults that are to be noticed
BUILD_LIMIT, TEST_LIMIT = 600, 60  # seconds; a test that hangs has noticed the fault
MEMORY_LIMIT, FILE_LIMIT = 4 << 30, 1 << 30  # bytes a process or a file may take

TURNED = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&",
          "true": "false", "false": "true"}
NO_RULE = re.compile(r"^\s*(#|static_assert|namespace|using |friend )|trace\.line|::kill\(")  # might end other programs
BODY = re.compile(r"[={?]|return|\b(if|for|while) \(")  # a header's line without any of these declares only
LITERAL = re.compile(r'"(?:\\.|[^"\\])*"|(?<!\w)\'(?:\\.|[^\'\\])+\'|//.*')
NUMBER = re.compile(r"(?<![\w.'])(0[xX][\da-fA-F']+|\d[\d']*)(?=[uUlL]*(?![\w.]))")
BASES = (("0[xX]", "0x", 16, "X"), ("0[0-7]", "0", 8, "o"), ("", "", 10, "d"))  # start, prefix, base, format
COMPARISON = re.compile(r"(?<= )(?:[<>]=?|[=!]=|&&|\|\|)(?= |$)")
BOOL = re.compile(r"(?<!return )\b(true|false)\b")
CONDITION = re.compile(r"\b(?:if|while) \(")
GUARD = r"\s*(?:\} )?(?:else )?(?:(?:if|for|while) \(.*\) )?"  # what may stand before a statement in its line
PLACE = r"(?!return|throw|delete|if|for)(?:\+\+|--)?[\w:.\[\]]*(?:->[\w.]+)*"
STATEMENT = re.compile(rf"({GUARD})({PLACE}(?:\(.*\)| [-+|&]?= .*|));$")
RETURN = re.compile(r"return (.*);")
YES_OR_NO = re.compile(r" ([<>]=?|[=!]=|&&|\|\|) |^!|\b(is|has|in|may|contains|same|starts|ends)_?\w*\(|^(true|false)$")

Fault = collections.namedtuple("Fault", "file number kind before after")


# ---- drawing ----------------------------------------------------------------------------------------------

def closing(text, opening):
    """Where the parenthesis opened at `opening` closes, None when not in this line."""
    depth = 0
    for at in range(opening, len(text)):
        depth += (text[at] == "(") - (text[at] == ")")
        if depth == 0:
            return at
    return None


def other_number(text):
    """The number after it, in the same base."""
    prefix, base, form = next(values for start, *values in BASES if re.match(start, text))
    return prefix + format(int(text.replace("'", ""), base) + 1, form)


def other_literal(text):
    """A text with one character changed, or one more where that could break an escape or a half of a character."""
    quote, inside = text[0], text[1:-1]
    if quote == "'":
        return "'x'" if inside != "x" else "'y'"
    letter = None if "\\" in inside else re.search(r"[A-Ya-y0-8]", inside)
    if letter:
        inside = inside[:letter.start()] + chr(ord(letter.group()) + 1) + inside[letter.end():]
    return quote + (inside if letter else "x" + inside) + quote


def edits_of(line):
    """The faults that a line can have: (kind, from column, to column, new text)."""
    literals = [match for match in LITERAL.finditer(line)]
    code = LITERAL.sub(lambda match: "" if match[0].startswith("//") else "\0" * len(match[0]), line).rstrip()
    for match in literals:
        if not match[0].startswith("//"):
            yield "text", match.start(), match.end(), other_literal(match[0])
    for match in NUMBER.finditer(code):
        yield "constant", match.start(), match.end(), other_number(match[0])
    for kind, pattern in (("comparison", COMPARISON), ("constant", BOOL)):
        for match in pattern.finditer(code):
            yield kind, match.start(), match.end(), TURNED[match[0]]
    for match in CONDITION.finditer(code):
        end = closing(code, match.end() - 1)
        if end is not None and not re.search(r";|\bauto\b| = ", code[match.end():end]):
            yield "condition", match.end(), end, f"!({line[match.end():end]})"
    match = STATEMENT.match(code)
    if match and match[2].count("(") == match[2].count(")"):
        yield "dropped", match.start(2), len(code), "{}"
    match = RETURN.search(code)
    if match and YES_OR_NO.search(match[1]):
        yield "return", match.start(1), match.end(1), f"!({line[match.start(1):match.end(1)]})"


def faults_of(file, wanted):
    """The faults of the wanted lines of a file (None: all of them), a list for each line."""
    for number, line in enumerate((SOURCE / file).read_text(encoding="utf-8").splitlines(), 1):
        if wanted is not None and number not in wanted or NO_RULE.search(line):
            continue
        if file.endswith(".h") and not BODY.search(LITERAL.sub("", line)):
            continue
        faults = [Fault(file, number, kind, line, line[:first] + new + line[last:])
                  for kind, first, last, new in edits_of(line)]
        if faults:
            yield faults


def git(*arguments):
    return subprocess.run(("git", "-C", SOURCE, *arguments), check=True, capture_output=True, text=True).stdout


def changed_lines(revision):
    """The lines of each file under src/ that are not as they were at that revision."""
    lines, file = collections.defaultdict(set), None
    for line in git("diff", "-U0", "--no-color", revision, "--", "src").splitlines():
        if line.startswith("+++ "):
            file = line[6:]
        elif match := re.match(r"@@ \S+ \+(\d+)(?:,(\d+))? @@", line):
            first, count = int(match[1]), int(match[2] or 1)
            lines[file].update(range(first, first + count))
    return lines


def draw(options):
    """All faults asked for, shuffled: a line once, with one of its faults."""
    chance = random.Random(options.seed)
    changed = changed_lines(options.since) if options.since else None
    prefix = f"src/{options.folder}/" if options.folder else "src/"
    files = options.files or [file for file in git("ls-files", prefix).split()
                              if file.endswith((".cpp", ".h")) and not file.startswith("src/gui/")]
    lines = [faults for file in files for faults in faults_of(file, changed[file] if options.since else None)]
    chance.shuffle(lines)
    return [chance.choice(faults) for faults in lines]


# ---- the copy ---------------------------------------------------------------------------------------------

def refresh_copy():
    """Brings the copy to the working tree's state; equal files keep their times, so that little is built anew."""
    wanted = {file for file in git("ls-files", "-co", "--exclude-standard", "-z").split("\0")
              if (SOURCE / file).is_file()}
    for path in [path for path in TREE.rglob("*") if path.is_file()]:
        if str(path.relative_to(TREE)) not in wanted:
            path.unlink()
    for file in wanted:
        bytes_, copy = (SOURCE / file).read_bytes(), TREE / file
        if not copy.is_file() or copy.read_bytes() != bytes_:
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_bytes(bytes_)
    SCRATCH.mkdir(exist_ok=True)


def limit():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
    resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_LIMIT, resource.RLIM_INFINITY))  # tests set one of their own
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(seconds, *command):
    """Status and output of a command, a session of its own: what a faulty program signals or deletes stays in there."""
    environment = os.environ | {"TMPDIR": str(SCRATCH), "HOME": str(SCRATCH), "GTEST_FAIL_FAST": "1",
                                "CCACHE_DIR": os.environ.get("CCACHE_DIR", os.path.expanduser("~/.cache/ccache"))}
    process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                               env=environment, start_new_session=True, preexec_fn=limit)
    try:
        output = process.communicate(timeout=seconds)[0]
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        return "too long", process.communicate()[0]
    return process.returncode, output


def build():
    return run(BUILD_LIMIT, "cmake", "--build", BUILD, "--", "-j2")


def failing_test():
    """The name of the first test that fails, None when all pass."""
    status, output = run(BUILD_LIMIT, "ctest", "--test-dir", BUILD, "--stop-on-failure", "-j2", "--timeout",
                         str(TEST_LIMIT), "--output-on-failure")
    if status == 0:
        return None
    case = re.search(r"\[  FAILED  \] (\w+\.\w+)", output)
    program = re.search(r"\d+ - (\S+) \((?:Failed|Timeout|\w+)", output)
    return case[1] if case else program[1] if program else f"ctest ({status})"


def prepare():
    """A copy that is built and passes its tests; ends the program when there is none."""
    COPY.mkdir(parents=True, exist_ok=True)
    refresh_copy()
    status, output = run(BUILD_LIMIT, "cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DVARNISTO_GUI=OFF",
                         "-DCMAKE_CXX_FLAGS=-O0")
    if status == 0:
        status, output = build()
    failed = output if status else failing_test()
    if failed:
        print(f"without any fault: {failed}", file=sys.stderr)
        sys.exit(2)


def try_fault(fault):
    """What became of a fault: "refused" by the compiler, None when nobody noticed it, else the test that did."""
    copy = TREE / fault.file
    whole = copy.read_text(encoding="utf-8")
    lines = whole.split("\n")
    lines[fault.number - 1] = fault.after
    copy.write_text("\n".join(lines), encoding="utf-8")
    try:
        return "refused" if build()[0] != 0 else failing_test()
    finally:
        copy.write_text(whole, encoding="utf-8")


# ---- the report -------------------------------------------------------------------------------------------

def show(fault, noticed, seconds):
    verdict = f"noticed by {noticed}" if noticed else "NOT NOTICED"
    print(f"{fault.file}:{fault.number}  {fault.kind}  {fault.before.strip()}  ->  {fault.after.strip()}\n"
          f"    {verdict}  ({seconds:.0f} s)", flush=True)


def plant(drawn, options):
    """Plants the drawn faults; returns for each folder how many were noticed and planted."""
    folders, refused = collections.defaultdict(lambda: [0, 0]), 0
    end = time.monotonic() + options.minutes * 60
    for fault in drawn:
        if sum(planted for _, planted in folders.values()) == options.faults or time.monotonic() > end:
            break
        begun = time.monotonic()
        noticed = try_fault(fault)
        if noticed == "refused":
            refused += 1
            continue
        show(fault, noticed, time.monotonic() - begun)
        count = folders[fault.file.split("/")[1]]
        count[0] += noticed is not None
        count[1] += 1
    print(f"\n{refused} more were refused by the compiler")
    return folders


def options_of(arguments):
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--faults", type=int, default=40, metavar="N", help="how many (default 40)")
    parser.add_argument("--seed", type=int, default=1, metavar="S", help="which (default 1)")
    parser.add_argument("--folder", metavar="NAME", help="only from this folder of src/")
    parser.add_argument("--files", nargs="+", metavar="FILE", help="only from these files, as src/base/text.cpp")
    parser.add_argument("--since", metavar="REV", help="only from lines changed since this revision")
    parser.add_argument("--minutes", type=float, default=600, metavar="M", help="plant no more after this time")
    return parser.parse_args(arguments)


def main():
    options = options_of(sys.argv[1:])
    os.nice(10)
    try:
        drawn = draw(options)
    except (OSError, subprocess.CalledProcessError) as error:  # no such file or revision
        print(error, file=sys.stderr)
        return 2
    prepare()
    folders = plant(drawn, options)
    for folder, (noticed, planted) in sorted(folders.items()):
        print(f"{folder:10} {noticed:4} of {planted}")
    noticed, planted = map(sum, zip(*folders.values(), (0, 0)))
    print(f"{'all':10} {noticed:4} of {planted}")
    return 0 if noticed >= ENOUGH * planted else 1


if __name__ == "__main__":
    sys.exit(main())
