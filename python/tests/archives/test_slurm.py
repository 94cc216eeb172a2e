"""Array jobs of Slurm, on a cluster of one node that is started for the tests."""

import re
import subprocess
from collections.abc import Iterator
from pathlib import Path

import pytest

from support import ARCHIVE, check_table, cut_spoilt, make_files, part_files, rows, run, wait_for

import slurm_submit


@pytest.fixture(scope="module", autouse=True)
def cluster() -> Iterator[None]:
    command = [str(ARCHIVE / "one_node_slurm"), "--cpus", "2", "sh", "-c", 'echo "$SLURM_CONF"; read -r _']
    servers = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    assert servers.stdin and servers.stdout
    configuration = servers.stdout.readline().strip()
    assert configuration, "the cluster did not start"
    with pytest.MonkeyPatch.context() as environment:
        environment.setenv("SLURM_CONF", configuration)
        yield
    servers.communicate("\n")
    assert not Path(configuration).parent.exists()


def test_what_is_killed_is_done_by_the_next_submission(tmp_path: Path) -> None:
    results = tmp_path / "100 %j of it"
    names = make_files(tmp_path, {35: "hostile", 65: "kills", 75: "hangs"})
    igs = cut_spoilt(tmp_path, results, names)
    submit = [ARCHIVE / "slurm_submit.py", results, "--per-task", 4]
    jobs = re.findall(r"job (\d+)", run(*submit, IGS=str(igs)))
    wait_for((tmp_path / "hangs").exists)
    run("scancel", f"{jobs[0]}_2")
    wait_for(lambda: not run("squeue", "--noheader"))
    assert "missing: 6 7 11 12 16 17" in (results / f"logs/{jobs[1]}.log").read_text()
    assert len({row[0] for row in rows(results / "findings.sqlite")}) == 140

    (tmp_path / "spoil").unlink()
    parts = part_files(results)
    again = run(*submit, "--wait", IGS=str(igs))
    assert "checks 6 batches" in again and "200 files, " in again
    assert parts.items() <= part_files(results).items()
    assert len(list(results.glob(f"logs/{again.split()[1]}_*"))) == 2
    check_table(tmp_path, results, names)


def test_every_batch_has_one_task() -> None:
    for count, per_task in [(1, 10), (10, 10), (11, 10), (10_010, 10), (10_011, 10), (100_000, 1)]:
        chunks = slurm_submit.chunks_of(count, per_task, 1001)
        tasks = slurm_submit.array_of(range(count), chunks).split(",")
        done = [range(int(task), count, chunks) for task in tasks]
        assert sorted(number for task in done for number in task) == list(range(count))
        assert len(done) <= 1001 and max(map(len, done)) <= max(per_task, -(-count // 1001))


def test_more_batches_than_an_array_has_tasks(tmp_path: Path) -> None:
    listed = "\n".join(f"{number}.igs" for number in range(1100)).encode()
    run(ARCHIVE / "batches.py", "cut", tmp_path, "--size", 1, "--files-from", "-", stdin=listed)
    run(ARCHIVE / "slurm_submit.py", tmp_path, "--per-task", 1, "--", "--hold")
    tasks = run("squeue", "--noheader", "--array", "--name=igs-check", "--format=%K").split()
    run("scancel", "--name=igs-check,igs-gather")
    assert sorted(map(int, tasks)) == list(range(1001))
