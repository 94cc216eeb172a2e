"""Files belong to their threads, and long work lets others run."""

from __future__ import annotations

import os
import sys
import threading
import time
from collections.abc import Callable
from concurrent.futures import ThreadPoolExecutor
from functools import partial
from pathlib import Path
from typing import TypeVar

import igs
import pytest
from program import EXAMPLES

Result = TypeVar("Result")


def in_thread(call: Callable[[], Result]) -> Result:
    with ThreadPoolExecutor(1) as pool:
        return pool.submit(call).result()


def test_others_run_meanwhile() -> None:
    file = igs.new()
    for i in range(60_000):
        file.add(110, start_point=(i, 0, 0), end_point=(i + 0.5, i % 7 + 0.25, 1))
    content = file.to_bytes()
    surfaces = igs.read(EXAMPLES / "surfaces.igs")
    calls: dict[str, Callable[[], object]] = {
        "read": lambda: igs.read(content),
        "check": lambda: file.check(),
        "write": lambda: file.to_bytes(line_ends="crlf"),
        "repair": lambda: file.repair(geometry=False),
        "mesh": lambda: surfaces.mesh(chord=1e-4, angle=0.01),
    }
    turns: list[float] = []
    ended = threading.Event()

    def take_turns() -> None:
        while not ended.wait(0.001):
            turns.append(time.perf_counter())

    interval = sys.getswitchinterval()
    with ThreadPoolExecutor(1) as pool:
        pool.submit(take_turns)
        sys.setswitchinterval(1000)  # nobody is interrupted: others run where they are let
        try:
            for name, call in calls.items():
                turns.clear()
                call()
                assert len(turns) > 2, name
        finally:
            sys.setswitchinterval(interval)
            ended.set()


def test_a_file_is_of_one_thread() -> None:
    file = igs.read(EXAMPLES / "curves.igs")
    entity = file.entities[-1]
    uses: list[Callable[[], object]] = [file.check, file.repair, file.mesh, file.to_bytes, file.__len__]
    uses += [partial(file.add, 110), partial(file.remove, entity), partial(entity.points, 3)]
    uses += [lambda: file.entities, lambda: entity.fields, lambda: setattr(entity, "label", "X")]
    for use in uses:
        with pytest.raises(RuntimeError, match="another"):
            in_thread(use)
    assert len(file) == 15 and entity.fields and file.check() == []


def test_files_may_be_dropped_anywhere() -> None:
    for _ in range(20):
        files = [igs.read(EXAMPLES / "curves.igs")]
        entity = files[0].entities[0]
        in_thread(files.clear)  # which its entity outlives
        assert entity.fields["EndPoint"] == {"x": 40.0, "y": 0.0, "z": 0.0}
        del entity
        foreign = in_thread(lambda: igs.read(EXAMPLES / "box.igs"))
        with pytest.raises(RuntimeError):
            len(foreign)
        entities = in_thread(lambda: igs.read(EXAMPLES / "box.igs").entities)
        del foreign, entities  # their threads are gone
        with ThreadPoolExecutor(1) as pool:
            held = pool.submit(lambda: igs.read(EXAMPLES / "box.igs")).result()
            del held  # its thread lives, and takes it back
            assert pool.submit(lambda: igs.read(EXAMPLES / "box.igs").check()).result() == []


def test_a_pool_finds_the_same(all_samples: list[Path]) -> None:
    def tried(path: Path) -> object:
        try:
            file = igs.read(path)
            return list(file.check()), list(file.repair(units="mm", salvage=True).repaired)
        except ValueError as refusal:
            return str(refusal)

    small = [each for each in all_samples if each.stat().st_size < 200_000]
    with ThreadPoolExecutor(2 * len(os.sched_getaffinity(0))) as pool:
        at_once = list(pool.map(tried, small))
    assert at_once == list(map(tried, small))
