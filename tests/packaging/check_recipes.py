#!/usr/bin/env python3
"""The recipes for package managers, which are not run: they are Python and JSON, name this version and copy what exists.

check_recipes.py SOURCE_DIR VERSION
"""
import ast
import json
import pathlib
import sys

root, version = pathlib.Path(sys.argv[1]), sys.argv[2]
packaging = root / "packaging"


class Paths(ast.NodeVisitor):
    """Collects the patterns of export_sources()."""

    def __init__(self):
        self.patterns = []

    def visit_FunctionDef(self, function):
        if function.name == "export_sources":
            self.patterns += [n.value for n in ast.walk(function) if isinstance(n, ast.Constant)]


recipe = Paths()
for path in packaging.glob("conan/**/conanfile.py"):
    recipe.visit(ast.parse(path.read_text(), str(path)))
assert recipe.patterns, "no exported sources"
for pattern in recipe.patterns:
    assert list(root.glob(pattern)), f"conanfile.py exports {pattern}, which does not exist"
listing = (root / "CMakeLists.txt").read_text()
assert listing.split("project(igs VERSION ")[1].split()[0] == version, "set_version() misreads CMakeLists.txt"

port = json.loads((packaging / "vcpkg/igs/vcpkg.json").read_text())
assert port["version"] == version, f"vcpkg.json has version {port['version']}"
