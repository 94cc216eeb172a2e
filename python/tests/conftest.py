"""The package is tested on the examples, and on the real files of the folder that IGES_CORPUS names."""

from __future__ import annotations

import os
from pathlib import Path

import pytest

from program import EXAMPLES

CORPUS = os.environ.get("IGES_CORPUS")


def samples() -> list[Path]:
    real = sorted(Path(CORPUS).glob("*.ig*s")) if CORPUS else []
    if CORPUS and not real:
        raise pytest.UsageError(f"IGES_CORPUS names {CORPUS}, where no files are")
    return sorted(EXAMPLES.glob("*.igs")) + real


def pytest_report_header() -> str:
    real = f"with the real files in {CORPUS}" if CORPUS else "WITHOUT REAL FILES"
    return f"igs: {real}, as IGES_CORPUS says"


def pytest_generate_tests(metafunc: pytest.Metafunc) -> None:
    if "sample" in metafunc.fixturenames:
        files = samples()
        metafunc.parametrize("sample", files, ids=[path.stem for path in files])


@pytest.fixture(scope="session")
def all_samples() -> list[Path]:
    return samples()
