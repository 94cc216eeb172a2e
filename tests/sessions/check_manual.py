# Compares the manual page and docs/tolerances.md with what the program says of itself.
import pathlib, re, subprocess, sys

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
        once(rf"^\.It .*Fl {option}\b")
        if option not in ("-help", "-output"):
            once(rf"Fl {option}\b", synopsis)
rows = re.findall(r"^\| `(kel\w+)` \| (\S+) \| (.*?) \|", (ROOT / "docs/tolerances.md").read_text(), re.M)
keys = sorted(set(re.findall("kel(?:Tol|Opt)[A-Za-z0-9]+", igs("check", "--help"))))
if len(commands) < 6 or keys != sorted(name for name, _, _ in rows):
    print(commands, keys, rows)
for name, value, meaning in rows:
    told = re.search(r"Meaning: (.*)\.\n  Default: ([^;]*);", igs("explain", name))
    if float(told[2]) != float(value) or told[1] != meaning:
        print(f"docs/tolerances.md of {name}: {value}, {meaning}")
    once(re.escape(f".It Cm {name} No {told[2]} {told[1]}"))
