"""Bad bytes end in an exception at most, and what is read is given back."""

from __future__ import annotations

import contextlib
import faulthandler
import gc
import gzip
import random
import subprocess
import sys
from pathlib import Path

import igs
import pytest
from program import EXAMPLES

ODD = b"-1 0 99999999999 1E400 -2147483648 NAN 9H 999999999Hx ; ,,, \xff \0 17".split(b" ")


def damaged(chance: random.Random, content: bytearray) -> bytes:
    """Bytes are others, lines are lost or doubled, the end is lost; most often values become others, or no numbers."""
    lines = content.splitlines(keepends=True)
    for _ in range(chance.randint(1, 12)):
        i = chance.randrange(len(lines))
        kind = chance.randrange(12)
        if kind == 0:
            lines[i][chance.randrange(len(lines[i]))] = chance.randrange(256)
        elif kind == 1:
            lines[i:i] = chance.choices(lines, k=chance.randint(1, 2))
        elif kind == 2 and len(lines) > 1:
            del lines[i]
        elif lines[i][72:73] == b"D":
            column = 8 * chance.randrange(9)
            lines[i][column : column + 8] = chance.choice(ODD)[:8].rjust(8)
        elif b"," in lines[i]:
            values = lines[i][:64].rstrip().split(b",")
            values[chance.randrange(len(values))] = bytearray(chance.choice(ODD))
            lines[i][:64] = b",".join(values)[:64].ljust(64)
    whole = b"".join(lines)
    end = chance.choice([chance.randrange(len(whole)), *[len(whole)] * 5])
    return gzip.compress(whole)[:end] if chance.random() < 0.05 else whole[:end]


def refusing() -> contextlib.AbstractContextManager[None]:
    """A ValueError is the one way to say no."""
    return contextlib.suppress(ValueError)


def use_entities(file: igs.File) -> None:
    for entity in file.entities:
        for name in dir(entity):
            with refusing():
                getattr(entity, name)
        with refusing():
            entity.points(5)
        with refusing():
            entity.mesh(chord=10.0)


def use(content: bytes, chance: random.Random) -> None:
    keep, strict, recover = (chance.random() < 0.8 for _ in range(3))
    file = igs.read(content, keep=keep, strict=strict, recover=recover)
    use_entities(file)
    list(map(str, file.check()))
    with refusing():
        file.mesh(chord=10.0)
    with refusing():
        file.repair(units="mm", salvage=True, summary=True, delete_faulty=chance.random() < 0.5)
    use_entities(file)
    with refusing():
        file.to_bytes(salvage=True)
        file.check(geometry=False)


def read_damaged(count: int, samples: list[bytes]) -> None:
    """In a process of its own, as it must not crash; says which seed comes next, as that makes the same file again."""
    faulthandler.enable()
    for seed in range(count):
        print(seed, flush=True)
        chance = random.Random(seed)
        with refusing():
            use(damaged(chance, bytearray(chance.choice(samples))), chance)


def test_damaged_files_never_crash_the_interpreter(all_samples: list[Path]) -> None:
    small = [each for each in all_samples if each.stat().st_size < 60_000]
    command: list[str | Path] = [sys.executable, __file__, "200", *small]
    child = subprocess.run(command, capture_output=True, text=True, timeout=300)
    said = child.stdout.split()
    assert child.returncode == 0, f"seed {said[-1:]}: status {child.returncode}: {child.stderr[-3000:]}"
    assert len(said) == 200


NO_IGES = [b"", b"\0" * 1000, b"ISO-10303-21;\n", b"\x1f\x8b\x08", bytes(range(256)) * 50]


@pytest.mark.parametrize("content", NO_IGES, ids=range(len(NO_IGES)))
def test_what_is_no_iges_file_is_refused(content: bytes, tmp_path: Path) -> None:
    path = tmp_path / "no.igs"
    path.write_bytes(content)
    with pytest.raises(ValueError):
        igs.read(content)
    with open(path, "rb") as file, pytest.raises(ValueError):
        igs.read(file)
    with pytest.raises(ValueError, match="no.igs: "):
        igs.read(path)


def test_memory_is_given_back() -> None:
    content = (EXAMPLES / "surfaces-faulty.igs").read_bytes()
    resident = []  # in pages, of which the first rounds take some for good
    for _ in range(4):
        for _ in range(50):
            file = igs.read(content)
            entities = list(file.entities)
            assert all(each.fields is not None for each in entities)
            file.check()
            file.mesh(chord=5.0)
            file.repair()
        del file, entities
        gc.collect()
        resident.append(int(Path("/proc/self/statm").read_text().split()[1]))
    assert (resident[3] - resident[1]) * 4096 < 20 * len(content), resident


if __name__ == "__main__":
    read_damaged(int(sys.argv[1]), [Path(name).read_bytes() for name in sys.argv[2:]])
