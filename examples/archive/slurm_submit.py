#!/usr/bin/python3
"""Has Slurm check what is missing of an archive that batches.py has cut, and gather what was found.

    slurm_submit.py RESULTS [--per-task N] [--at-once N] [--wait] [-- SBATCH-OPTION...]

An array job checks, and a job after it gathers, whatever became of the tasks. When some were ended, call it again: the
tasks that have batches left are submitted once more, and do those alone. Logs are in RESULTS/logs.
"""

import argparse
import re
import subprocess
import sys
from collections.abc import Iterable, Sequence
from pathlib import Path

import batches

HERE = Path(__file__).resolve().parent


def chunks_of(count: int, per_task: int, limit: int) -> int:
    """In how many chunks as many batches are done, when a task has per_task or more and an array limit tasks."""
    return min(-(-count // per_task), limit)


def array_of(missing: Iterable[int], chunks: int) -> str:
    """The tasks that have these batches, as sbatch takes them."""
    return ",".join(map(str, sorted({number % chunks for number in missing})))


def largest_array() -> int:
    shown = subprocess.run(
        ["scontrol", "show", "config"], check=True, stdout=subprocess.PIPE, text=True
    ).stdout
    found = re.search(r"^MaxArraySize\s*=\s*([1-9]\d*)", shown, re.MULTILINE)
    if not found:
        raise RuntimeError("this cluster takes no array jobs")
    return int(found[1])


def submit(results: Path, log: str, options: Sequence[str], arguments: Sequence[str] = ()) -> tuple[str, int]:
    """The number of the job that slurm_check.sh becomes and, with --wait among the options, its exit status."""
    logs = str(results / "logs").replace("%", "%%")
    command = ["sbatch", "--parsable", f"--chdir={HERE}", f"--output={logs}/{log}", *options]
    done = subprocess.run(
        [*command, str(HERE / "slurm_check.sh"), str(results), *arguments], stdout=subprocess.PIPE, text=True
    )
    job = done.stdout.partition(";")[0].strip()
    if not job:
        raise RuntimeError("sbatch has not taken the job")
    return job, done.returncode


def check(chosen: argparse.Namespace, options: Sequence[str]) -> int:
    results = batches.load_plan(chosen.results).results
    (results / "logs").mkdir(exist_ok=True)
    left = batches.missing(results)
    last = ["--job-name=igs-gather"]
    if left:
        chunks = chunks_of(batches.load_plan(results).batches, chosen.per_task, largest_array())
        array = f"--array={array_of(left, chunks)}" + (f"%{chosen.at_once}" if chosen.at_once else "")
        job, _ = submit(results, "%A_%a.log", [array, *options], [str(chunks)])
        last.append(f"--dependency=afterany:{job}")
        print(f"job {job} checks {len(left)} batches", flush=True)
    job, status = submit(results, "%j.log", [*last, *options, *(["--wait"] if chosen.wait else [])])
    print((results / f"logs/{job}.log").read_text().strip() if chosen.wait else f"job {job} gathers")
    return status


def main() -> int:
    given = sys.argv[1:]
    own = given[: given.index("--")] if "--" in given else given
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("results", type=Path)
    parser.add_argument("--per-task", type=int, default=10, help="batches that a task does, or more")
    parser.add_argument("--at-once", type=int, help="run no more tasks than that at a time")
    parser.add_argument(
        "--wait", action="store_true", help="until all is gathered; 1 when batches are missing"
    )
    chosen = parser.parse_args(own)
    if chosen.per_task < 1 or chosen.at_once is not None and chosen.at_once < 1:
        parser.error("--per-task and --at-once take 1 or more")
    try:
        return check(chosen, given[len(own) + 1 :])
    except (OSError, ValueError, KeyError, RuntimeError, subprocess.CalledProcessError) as error:
        print(f"slurm_submit: {error}", file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main())
