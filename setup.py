"""Packs the Python package (pyproject.toml), whose module CMake builds.

The environment variable IGS_BUILD_DIR names a build folder to build it in, where what is built is not built again: one of
`scripts/build`, for example. It is made to build a static library and the module for this Python.
"""

from __future__ import annotations

import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = Path(__file__).resolve().parent


def version() -> str:
    found = re.search(r"^project\(igs VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.MULTILINE)
    assert found, "CMakeLists.txt names no version"
    return found[1]


def options_of_new_folder() -> list[str]:
    options = ["--preset=release", "-DIGS_BUILD_TOOL=OFF"]
    try:
        import pybind11
    except ImportError:
        return options  # CMake looks for it itself
    return [*options, f"-Dpybind11_DIR={pybind11.get_cmake_dir()}"]


class BuildByCMake(build_ext):
    def build_extension(self, extension: Extension) -> None:
        build = Path(os.environ.get("IGS_BUILD_DIR") or self.build_temp).resolve()
        options = [
            "-DIGS_BUILD_PYTHON=ON",
            "-DBUILD_SHARED_LIBS=OFF",
            f"-DPython_EXECUTABLE={sys.executable}",
        ]
        if not (build / "CMakeCache.txt").exists():
            options += options_of_new_folder()
        subprocess.run(["cmake", "-S", ROOT, "-B", build, *options], check=True)
        subprocess.run(
            ["cmake", "--build", build, "--parallel", str(os.cpu_count()), "--target", "igs_python"],
            check=True,
        )
        target = self.get_ext_fullpath(extension.name)  # type: ignore[no-untyped-call]
        self.mkpath(str(Path(target).parent))
        self.copy_file(str(build / "python/igs" / Path(target).name), target)


# What is made on the way stands apart from the sources and from the folders of scripts/build.
base = Path("build/wheel")
base.mkdir(parents=True, exist_ok=True)
for stale in (*base.glob("lib*"), *base.glob("*.egg-info")):  # or files that are gone since would be packed
    shutil.rmtree(stale)
setup(
    version=version(),
    ext_modules=[Extension("igs._igs", sources=[])],
    cmdclass={"build_ext": BuildByCMake},
    options={"build": {"build_base": str(base)}, "egg_info": {"egg_base": str(base)}},
)
