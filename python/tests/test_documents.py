"""What documents show is so, and stubs are of what is there."""

from __future__ import annotations

import ast
import doctest
import os
import re
import shutil
import subprocess
import sys
from collections.abc import Iterable
from pathlib import Path
from types import ModuleType

import igs
import pytest
from program import EXAMPLES, ROOT

OPTIONS = doctest.ELLIPSIS | doctest.NORMALIZE_WHITESPACE
MODULES = [igs, *(sys.modules[f"igs.{name}"] for name in ("_file", "_findings", "_explain", "_write"))]


@pytest.fixture
def with_examples(tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> Path:
    """A folder of its own, with examples/ and the samples where documents have them."""
    shutil.copytree(EXAMPLES, tmp_path / "examples")
    monkeypatch.chdir(tmp_path)
    return tmp_path


@pytest.mark.parametrize("module", MODULES, ids=lambda module: str(module.__name__))
def test_docstrings_are_so(module: ModuleType, with_examples: Path) -> None:
    assert doctest.testmod(module, extraglobs={"igs": igs}, optionflags=OPTIONS).failed == 0


def test_the_guide_is_so(with_examples: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    monkeypatch.chdir("examples")
    page = ROOT / "docs/guide/python.md"
    text = re.sub(r"^```.*$", "", page.read_text(), flags=re.MULTILINE)
    samples = doctest.DocTestParser().get_doctest(text, {}, page.name, str(page), 0)
    assert len(samples.examples) > 30
    assert doctest.DocTestRunner(optionflags=OPTIONS).run(samples).failed == 0
    assert f"```python\n{(EXAMPLES / 'python/survey.py').read_text()}```" in page.read_text()


def test_the_survey_is_the_one_shown(with_examples: Path) -> None:
    command = [sys.executable, "examples/python/survey.py", "examples/surfaces-faulty.igs", "survey.png"]
    variables = os.environ | {"MPLCONFIGDIR": str(with_examples)}
    done = subprocess.run(command, capture_output=True, text=True, check=True, env=variables)
    assert f"```text\n{done.stdout}```" in (ROOT / "docs/guide/python.md").read_text()
    from matplotlib import image

    drawn, shown = (image.imread(path) for path in ("survey.png", ROOT / "docs/pictures/survey.png"))
    assert drawn.shape == shown.shape and abs(drawn - shown).mean() < 0.02


def declared(body: list[ast.stmt]) -> dict[str, ast.stmt]:
    """What has names, by them; of a property with a setter, that."""
    names: dict[str, ast.stmt] = {}
    for each in body:
        if isinstance(each, ast.AnnAssign) and isinstance(each.target, ast.Name):
            names[each.target.id] = each
        elif isinstance(each, (ast.FunctionDef, ast.ClassDef)):
            names[each.name] = each
    return names


def public(names: Iterable[str]) -> set[str]:
    return {name for name in names if not name.startswith("_")}


def is_settable(statement: ast.stmt) -> bool:
    if isinstance(statement, ast.FunctionDef):
        return any(ast.unparse(each).endswith(".setter") for each in statement.decorator_list)
    return isinstance(statement, ast.AnnAssign)


def test_stubs_are_complete() -> None:
    stub = Path(igs.__file__).with_name("_igs.pyi")
    statements = declared(ast.parse(stub.read_text()).body)
    assert public(statements) - {"Reals"} == public(dir(igs._igs))
    for name in public(statements):
        there, statement = getattr(igs._igs, name, None), statements[name]
        if not isinstance(there, type) or not isinstance(statement, ast.ClassDef):
            continue
        members = declared(statement.body)
        assert public(members) == public(vars(there)), name
        assert [ast.unparse(base) for base in statement.bases] == [
            base.__name__ for base in there.__bases__ if base.__name__ != "pybind11_object"
        ]
        inherited = {member for base in there.__mro__[1:] for member in vars(base)}
        for member in public(members):
            value, whole = vars(there)[member], f"{name}.{member}"
            if isinstance(value, property):
                assert is_settable(members[member]) == (value.fset is not None), whole
            assert value.__doc__ or member in inherited or name not in igs.__all__, whole
