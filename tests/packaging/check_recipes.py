#!/usr/bin/env python3
# The recipes for package managers, which are not run: they are Python and JSON, name this version and copy what exists.
#
# check_recipes.py SOURCE_DIR VERSION
import ast, json, pathlib, sys

root, version = pathlib.Path(sys.argv[1]), sys.argv[2]
nodes = [node for path in root.glob("packaging/conan/**/conanfile.py") for node in ast.walk(ast.parse(path.read_text(), str(path)))]
exports = [node for node in nodes if isinstance(node, ast.FunctionDef) and node.name == "export_sources"]
patterns = [node.value for export in exports for node in ast.walk(export) if isinstance(node, ast.Constant)]
assert patterns, "no exported sources"
for pattern in patterns:
    assert list(root.glob(pattern)), f"conanfile.py exports {pattern}, which does not exist"
listing = (root / "CMakeLists.txt").read_text()
assert listing.split("project(igs VERSION ")[1].split()[0] == version, "set_version() misreads CMakeLists.txt"
port = json.loads((root / "packaging/vcpkg/igs/vcpkg.json").read_text())
assert port["version"] == version, f"vcpkg.json has version {port['version']}"
