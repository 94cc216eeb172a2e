#!/usr/bin/python3
# mypy: allow-untyped-calls
# (much of distributed has no types)
"""Has the workers of a Dask cluster check the batches that are missing in RESULTS, then gathers.

    batches.py cut RESULTS --files-from LIST
    dask_check.py RESULTS ADDRESS        of the scheduler, such as tcp://127.0.0.1:8786

All machines see RESULTS, the files and the folder of this script under the same names. When a worker is lost,
another one runs its batch; when this script was ended, calling it again goes on where it was.
"""

import argparse
import logging
import queue
import socket
import sys
import time
from collections.abc import Iterator, Sequence
from concurrent.futures import CancelledError
from functools import partial
from pathlib import Path

from distributed import Client, Future

import batches


def check(folder: str, results: Path, number: int) -> "batches.BatchDone":
    """Runs in a worker, which has to be told where the modules are."""
    try:
        if folder not in sys.path:
            sys.path.insert(0, folder)
        import batches

        return batches.run_batch(results, number)
    except Exception as error:
        raise RuntimeError(f"on {socket.gethostname()}: {error}") from error


def as_finished(futures: Sequence[Future], seconds: float) -> Iterator[Future | None]:
    """The futures in the order in which they finish; None whenever none has for so long."""
    finished: queue.SimpleQueue[Future] = queue.SimpleQueue()
    for future in futures:
        future.add_done_callback(finished.put)
    left = len(futures)
    while left > 0:
        try:
            yield finished.get(timeout=seconds)
            left -= 1
        except queue.Empty:
            yield None


def run_batches(client: Client, results: Path, numbers: Sequence[int], seconds: float = 5.0) -> None:
    """Has the workers run these batches; says every so often how far they are, and which could not be run."""
    run = partial(check, str(Path(__file__).resolve().parent), results)
    # Not pure: no outcome may come from the memory of the scheduler, as a part may have been deleted since.
    futures = client.map(run, numbers, pure=False, retries=2)
    number_of = dict(zip(futures, numbers))
    done, files, start, told = 0, 0, time.monotonic(), 0.0
    for future in as_finished(futures, seconds):
        if future is not None:
            done += 1
            try:
                files += future.result().files
            except CancelledError:
                raise ConnectionError("the scheduler is lost; call again for what is missing") from None
            except Exception as error:
                print(f"dask_check: batch {number_of[future]} was not run: {error}", file=sys.stderr)
        passed = time.monotonic() - start
        if done == len(futures) or passed > told + seconds:
            told = passed
            workers = len(client.scheduler_info()["workers"])
            rate = f"{files} files, {files / passed:.0f} a second"
            print(f"{done} of {len(futures)} batches, {rate}, workers: {workers}", file=sys.stderr)


def main() -> int:
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("results", type=Path)
    parser.add_argument("address")
    parser.add_argument("--timeout", type=float, default=10.0, help="seconds to wait for the scheduler")
    chosen = parser.parse_args()
    results = chosen.results.resolve()
    logging.getLogger("distributed").setLevel(
        logging.CRITICAL
    )  # what matters is said here, without tracebacks
    try:
        numbers = batches.missing(results)
        with Client(chosen.address, timeout=chosen.timeout) as client:
            run_batches(client, results, numbers)
        found = batches.gather(results)
    except (OSError, ValueError, TypeError, KeyError) as error:
        print(f"dask_check: {error}", file=sys.stderr)
        return 2
    print(f"{found.files} files, {found.failed} of them failed, {found.findings} findings")
    if found.missing:
        print("dask_check: missing:", *found.missing, file=sys.stderr)
    return 1 if found.missing else 0


if __name__ == "__main__":
    sys.exit(main())
