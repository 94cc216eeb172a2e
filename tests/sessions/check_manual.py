# Compares the manual page, docs/tolerances.md, the matcher of docs/integration.md and that of the action with what the program prints.
import json, pathlib, re, subprocess, sys

ROOT = pathlib.Path(sys.argv[1])
PAGE = re.sub(r"\n(?!\.)", " ", (ROOT / "docs/man/igs.1").read_text())


def igs(*words):
    return subprocess.run(["igs", *words], capture_output=True, text=True, check=True).stdout


def once(pattern, text=PAGE):
    if len(re.findall(pattern, text, re.M)) != 1:
        print(f"{pattern} does not stand once in the manual, or its synopsis: {text[:60]}")


commands = re.findall("^  ([a-z]+) ", igs("--help"), re.M)
for command in commands:
    once(rf"^\.It Cm {command} ")
    synopsis = PAGE.split(f".Nm\n.Cm {command}\n")[1].split(".Nm")[0]
    for option in re.findall(r"^  (?:-[a-z], )?-(-[a-z-]+)", igs(command, "--help"), re.M):
        once(rf"^\.It .*Fl {option}(?![-\w])")
        if option not in ("-help", "-output"):
            once(rf"Fl {option}(?![-\w])", synopsis)
rows = re.findall(r"^\| `([\w-]+)` \| (\S+) \| (.*?) \|", (ROOT / "docs/tolerances.md").read_text(), re.M)
keys = sorted(set(re.findall(r"\bkel(?:Tol|Opt)[A-Za-z0-9]+|\bshape-[a-z]+", igs("check", "--help"))))
if len(commands) < 6 or keys != sorted(name for name, _, _ in rows):
    print(commands, keys, rows)
for name, value, meaning in rows:
    told = re.search(r"Meaning: (.*)\.\n  Default: ([^;]*);", igs("explain", name))
    if float(told[2]) != float(value) or told[1] != meaning:
        print(f"docs/tolerances.md of {name}: {value}, {meaning}")
    once(re.escape(f".It Cm {name} No {told[2]} {told[1]}"))
report = subprocess.run(["igs", "check", *(ROOT / "examples").glob("*-faulty.igs")], capture_output=True, text=True).stdout
places = re.findall(r"^(.*):([0-9]+): (error|warning): (.*) \[(igs.*)\]$", report, re.M)
with_matchers = ("docs/integration.md", "packaging/github/problem-matcher.json")
matchers = re.findall(r'"regexp": (".*"),', "".join((ROOT / name).read_text() for name in with_matchers))
for matcher in map(json.loads, matchers):
    if not places or [place for place in re.findall(matcher, report, re.M) if place[2] != "note"] != places:
        print(f"{matcher} does not match")
if len(matchers) != 2:
    print(matchers)
