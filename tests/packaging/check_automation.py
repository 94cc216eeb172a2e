#!/usr/bin/python3
# The action and the hooks, run as a runner and pre-commit run them, with names and inputs that are out for more.
#
# check_automation.py SOURCE_DIR PROGRAM
import json, os, pathlib, re, shutil, subprocess, sys, tempfile

import yaml

ROOT, PROGRAM = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
FAULTY, SOUND = (ROOT / "examples" / name for name in ("bracket-faulty.igs", "box.igs"))
HOSTILE = "-x$(touch owned)`touch owned`\";touch owned;'\n::error::x\r::set-output name=status::0.IGS"
ACTION = yaml.safe_load((ROOT / "action.yml").read_text())
HOOKS = yaml.safe_load((ROOT / ".pre-commit-hooks.yaml").read_text())


def check_page():
    """What the page shows has these names: hooks, inputs, outputs."""
    page = (ROOT / "docs/integration.md").read_text()
    shown = [yaml.safe_load(block) for block in re.findall("```yaml\n(.*?)```", page, re.DOTALL)]
    repos = [repo for block in shown for repo in block.get("repos", []) if repo["repo"] != "local"]
    assert {hook["id"] for repo in repos for hook in repo["hooks"]} == {hook["id"] for hook in HOOKS}
    steps = [step for block in shown for job in block.get("jobs", {}).values() for step in job["steps"]]
    (inputs,) = (set(step["with"]) for step in steps if "/igs@" in step["uses"])
    rows = set(re.findall(r"^\| `([\w-]+)` \| ", page, re.MULTILINE))
    assert inputs <= rows == set(ACTION["inputs"]) and set(re.findall(r"outputs\.(\w+)", page)) <= set(
        ACTION["outputs"]
    )


def expand(text, values):
    return re.sub(r"\$\{\{ ([\w.-]+) \}\}", lambda found: values[found[1]], text)


def commands(log):
    """Those lines of a step's log that a runner takes for commands."""
    stopped = None
    for line in re.split("[\r\n]+", log):
        if line.startswith("::") and stopped in (None, line):
            stopped = line.replace("stop-commands::", "") + "::" if "::stop-commands::" in line else None
            yield line.split("::")[1].split()[0]


def act(folder, **given):
    """The exit status of the action, its outputs, log and summary."""
    inputs = {f"inputs.{name}": about["default"] for name, about in ACTION["inputs"].items()}
    wanted = {f"inputs.{name}".replace("_", "-"): value for name, value in given.items()}
    assert set(wanted) <= set(inputs) and ACTION["runs"]["using"] == "composite"
    (step,) = ACTION["runs"]["steps"]
    assert step["shell"] == "sh" and "${{" not in step["run"], "an input would become shell"
    runner = {"GITHUB_ACTION_PATH": str(ROOT)}
    files = {name: folder.with_name(name) for name in ("GITHUB_OUTPUT", "GITHUB_STEP_SUMMARY")}
    for name, path in files.items():
        path.write_text("")
        runner[name] = str(path)
    env = {name: expand(text, {**inputs, **wanted}) for name, text in step["env"].items()}
    done = subprocess.run(
        ["sh", "-e", "-c", step["run"]],
        cwd=folder,
        env={**os.environ, **runner, **env},
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
    )
    log = done.stdout.decode()
    token = log.split("::stop-commands::")[1][:32]
    assert list(commands(log)) == ["add-matcher", "stop-commands", token, "remove-matcher"], log
    written = re.findall(
        r"(\w+)<<(\w+)\n(.*?)\n\2\n", files["GITHUB_OUTPUT"].read_bytes().decode(), re.DOTALL
    )
    values = {f"steps.{step['id']}.outputs.{name}": value for name, _, value in written}
    outputs = (
        {name: expand(about["value"], values) for name, about in ACTION["outputs"].items()} if written else {}
    )
    return done.returncode, outputs, log, files["GITHUB_STEP_SUMMARY"].read_text()


def check_action(folder):
    folder.mkdir()
    for name in (HOSTILE, "b.igs"):
        shutil.copy(FAULTY, folder / name)
    shutil.copy(SOUND, folder / "sound.igs")

    status, outputs, log, summary = act(folder, program=str(PROGRAM), sarif=HOSTILE + "\nstatus=0")
    assert status == 1 and outputs == {"status": "1", "sarif": HOSTILE + "\nstatus=0"}, (status, outputs, log)
    heading, _, *lines = summary.splitlines()
    assert heading.startswith("# igs") and "3 files: 1 sound, 2 faulty" in summary, summary
    assert all(line.startswith("    ") or not line for line in lines), summary
    (run,) = json.loads((folder / outputs["sarif"]).read_text())["runs"]
    assert (
        len(
            {
                json.dumps(result["locations"][0]["physicalLocation"]["artifactLocation"])
                for result in run["results"]
            }
        )
        == 2
    )

    def statuses(**given):
        status, outputs, log, _ = act(folder, **{"program": str(PROGRAM), **given})
        assert outputs.get("status", str(status)) == str(status), log
        return status

    assert statuses(paths="sound.igs\n") == 0
    assert statuses(options="--ignore\n*") == 0
    assert statuses(options="--ignore=$(touch owned)\n`touch owned`") == 2
    assert statuses(options="--severity\n*=note", fail_on="") == 0
    assert statuses(options="--severity\n*=note", fail_on="note") == 1
    assert statuses(fail_on="note; touch owned") == 2
    assert statuses(paths="gone.igs\nsound.igs") == 2
    assert statuses(sarif="no/folder\n::error::x", paths="sound.igs") != 0
    assert statuses(program="./gone\n::error::x", paths="sound.igs") != 0
    assert not list(folder.rglob("owned"))


def check_hooks(folder):
    identity = {f"GIT_{who}_{what}": "x" for who in ("AUTHOR", "COMMITTER") for what in ("NAME", "EMAIL")}
    env = {**os.environ, **identity, "PRE_COMMIT_HOME": str(folder / "cache"), "PRE_COMMIT_COLOR": "never"}

    def call(where, *command):
        done = subprocess.run(command, cwd=where, env=env, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return done.returncode, done.stdout.decode()

    # A repository whose script runs the program at hand, as that of the checkout would build one.
    hooks, user = folder / "hooks", folder / "user"
    for repository in (hooks, user):
        repository.mkdir()
        call(repository, "git", "init", "--quiet")
    shutil.copy(ROOT / ".pre-commit-hooks.yaml", hooks)
    for hook in HOOKS:
        script = hooks / hook["entry"].split()[0]
        assert os.access(ROOT / script.relative_to(hooks), os.X_OK)
        script.parent.mkdir(exist_ok=True)
        script.write_text(f'#!/bin/sh\nexec "{PROGRAM}" "$@"\n')
        script.chmod(0o755)
    call(hooks, "git", "add", ".")
    assert call(hooks, "git", "commit", "--quiet", "--message=x")[0] == 0
    revision = call(hooks, "git", "rev-parse", "HEAD")[1].strip()

    def run(hook, *names):
        repo = {"repo": str(hooks), "rev": revision, "hooks": [{"id": hook}]}
        (user / ".pre-commit-config.yaml").write_text(json.dumps({"repos": [repo]}))
        assert call(user, "git", "add", ".")[0] == 0
        return call(
            user, "pre-commit", "run", "--verbose", *(["--files", *names] if names else ["--all-files"])
        )

    for name in (HOSTILE, "b.iges"):
        shutil.copy(FAULTY, user / name)
    shutil.copy(SOUND, user / "sound.igs")
    (user / "notes.txt").write_text("no part")
    status, said = run("igs-check")
    assert (
        status == 1 and "b.iges:4: error: " in said and "3 files: 1 sound, 2 faulty, 0 failed" in said
    ), said
    assert run("igs-check", "sound.igs", "notes.txt")[0] == 0
    (user / "igs.toml").write_text('ignore = ["*"]')
    status, said = run("igs-check")
    assert status == 0, said

    (user / "igs.toml").write_text("[repair]\nunits = 'mm'")
    sound = (user / "sound.igs").read_bytes()
    status, said = run("igs-repair")
    assert status == 1 and "files were modified by this hook" in said, said
    mended = (user / HOSTILE).read_bytes()
    status, said = run("igs-repair")
    assert "files were modified by this hook" not in said and "0 failed" in said, said
    assert (user / HOSTILE).read_bytes() == mended != FAULTY.read_bytes() and (
        user / "sound.igs"
    ).read_bytes() == sound
    assert not list(folder.rglob("owned"))


check_page()
with tempfile.TemporaryDirectory() as work:
    check_action(pathlib.Path(work, "act ion"))
    check_hooks(pathlib.Path(work))
