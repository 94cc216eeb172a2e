"""Tasks of Dask, with a scheduler and workers that are started for the tests, killed and joined by others."""

import json
import os
import signal
import subprocess
from collections.abc import Callable, Iterator
from pathlib import Path

import pytest

from support import ARCHIVE, check_table, cut_spoilt, make_files, part_files, run, wait_for

Process = subprocess.Popen[bytes]
Start = Callable[..., Process]
HERE = ("--no-dashboard", "--host", "127.0.0.1", "--scheduler-file", "scheduler.json")
WORKER = ("dask", "worker", *HERE, "--nthreads", 1, "--local-directory", "scratch")


@pytest.fixture
def start(tmp_path: Path) -> Iterator[Start]:
    """Starts processes that write to a log and end with the test."""
    started: list[Process] = []

    def start_one(log: str, *command: object) -> Process:
        words, environment = map(str, command), os.environ | {"IGS": str(tmp_path / "igs")}
        with (tmp_path / log).open("wb") as out:
            started.append(
                subprocess.Popen(list(words), cwd=tmp_path, env=environment, stderr=out, stdout=out)
            )
        return started[-1]

    yield start_one
    for process in reversed(started):
        process.terminate()
        process.wait()


def end_hanging(folder: Path) -> int:
    """Waits until the program hangs, kills the worker that called it, and returns the id of that."""
    hangs = folder / "hangs"
    wait_for(lambda: hangs.exists() and hangs.read_text())
    igs, worker = map(int, hangs.read_text().split())
    hangs.unlink()
    os.kill(worker, signal.SIGKILL)
    os.kill(igs, signal.SIGKILL)
    return worker


def test_workers_come_and_go(tmp_path: Path, start: Start) -> None:
    results, log = tmp_path / "100% of it", tmp_path / "check.log"
    names = make_files(tmp_path, {35: "hostile", 75: "hangs"})
    cut_spoilt(tmp_path, results, names)
    scheduler = start("scheduler.log", "dask", "scheduler", *HERE, "--port", 0)
    workers = [start(f"worker{number}.log", *WORKER, "--no-nanny") for number in range(2)]
    wait_for((tmp_path / "scheduler.json").exists)
    address = json.loads((tmp_path / "scheduler.json").read_text())["address"]
    check = [ARCHIVE / "dask_check.py", results, address]

    # The worker at batch 7 is killed; so is the other one, which is given it; a third one has to do the rest.
    checking = start("check.log", *check)
    killed = {end_hanging(tmp_path), end_hanging(tmp_path)}
    assert killed == {worker.pid for worker in workers}
    (tmp_path / "spoil").unlink()
    early = part_files(results)
    assert len(early) < 20
    third = start("worker2.log", *WORKER)
    assert checking.wait(60) == 0
    assert "20 of 20 batches, " in log.read_text() and "\n200 files, " in log.read_text()
    assert early.items() <= part_files(results).items()
    check_table(tmp_path, results, names)

    # What cannot be run is named; what has a part is not run again.
    (results / "parts/000003.ndjson").unlink()
    (results / "batches/000003.list").unlink()
    early = part_files(results)
    assert start("check.log", *check).wait(60) == 1
    assert "batch 3 was not run: on " in log.read_text()
    assert log.read_text().endswith("dask_check: missing: 3\n")
    assert part_files(results) == early

    # Neither a cluster without workers nor one without a scheduler keeps anybody waiting without a word.
    third.terminate()
    third.wait()
    checking = start("check.log", *check)
    wait_for(lambda: "0 of 1 batches, 0 files, 0 a second, workers: 0" in log.read_text())
    scheduler.kill()
    assert checking.wait(60) == 2
    assert log.read_text().endswith("the scheduler is lost; call again for what is missing\n")
    run(*check, "--timeout", 0.5, status=2)
