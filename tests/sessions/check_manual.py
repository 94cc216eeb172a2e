"""Compares the manual page and docs/tolerances.md with what the program says of itself."""
import pathlib, re, subprocess, sys

ROOT = pathlib.Path(sys.argv[1])
PAGE = re.sub(r"\n(?!\.)", " ", (ROOT / "docs/man/igs.1").read_text())


def igs(*words):
    return subprocess.run(["igs", *words], capture_output=True, text=True, check=True).stdout


def once(text, pattern, what):
    if len(re.findall(pattern, text, re.M)) != 1:
        print(f"{what} does not stand once in the manual")


commands = re.findall("^  ([a-z]+) ", igs("--help"), re.M)
for command in commands:
    once(PAGE, rf"^\.It Cm {command} ", command)
    begin = PAGE.index(f".Nm\n.Cm {command}\n")
    synopsis = PAGE[begin:PAGE.find(".Nm", begin + 1)]
    for option in re.findall(r"^  (?:-[a-z], )?-(-[a-z-]+)", igs(command, "--help"), re.M):
        once(PAGE, rf"^\.It .*Fl {option}\b", option)
        if option not in ("-help", "-output"):
            once(synopsis, rf"Fl {option}\b", f"{command} {option}")
rows = re.findall(r"^\| `(kel\w+)` \| (\S+) \| (.*?) \|", (ROOT / "docs/tolerances.md").read_text(), re.M)
keys = sorted(set(re.findall("kel(?:Tol|Opt)[A-Za-z0-9]+", igs("check", "--help"))))
if len(commands) < 6 or keys != sorted(name for name, _, _ in rows):
    print(commands, keys, rows)
for name, value, meaning in rows:
    told = re.search(r"Meaning: (.*)\.\n  Default: ([^;]*);", igs("explain", name))
    if float(told[2]) != float(value) or told[1] != meaning:
        print(f"docs/tolerances.md of {name}: {value}, {meaning}")
    once(PAGE, re.escape(f".It Cm {name} No {told[2]} {told[1]}"), name)
