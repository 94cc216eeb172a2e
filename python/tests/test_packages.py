"""The wheel, the source archive, `cmake --install` and the Debian package, of the folders that scripts/test-python builds."""

from __future__ import annotations

import os
import subprocess
import sys
import sysconfig
import tarfile
import venv
import zipfile
from pathlib import Path

import program
import pytest
from program import EXAMPLES, ROOT

BUILD = Path(os.environ.get("IGS_BUILD_DIR", ROOT / "build/test"))
SHARED_BUILD = BUILD / "tests/consumer/plain-build"
MODULES = {path.name for path in (ROOT / "python/igs").iterdir() if path.suffix in (".py", ".pyi", ".typed")}
COMPILED = "_igs" + sysconfig.get_config_var("EXT_SUFFIX")
SAMPLE = EXAMPLES / "bracket-faulty.igs"
pytestmark = pytest.mark.xdist_group(
    "packages"
)  # one after the other: what setuptools makes stands in one folder


def run(*command: str | Path, **variables: str | Path) -> str:
    """What the command prints, run with these environment variables beside the usual ones."""
    usual = {name: os.environ[name] for name in ("HOME", "PATH") if name in os.environ}
    environment = (
        usual | {"IGS_BUILD_DIR": str(BUILD)} | {name: str(value) for name, value in variables.items()}
    )
    done = subprocess.run(command, capture_output=True, text=True, env=environment, cwd="/")
    assert done.returncode == 0, done.stdout + done.stderr
    return done.stdout


def assert_works(python: str | Path, package: Path, **variables: str | Path) -> None:
    """This Python finds the package in this folder, and it finds what the program does."""
    script = "import igs, sys; print(igs.__file__, len(igs.read(sys.argv[1]).check()))"
    told = program.report("check", SAMPLE)["errors"]
    assert run(python, "-c", script, SAMPLE, **variables).split() == [
        f"{package}/__init__.py",
        str(len(told)),
    ]


def new_environment(folder: Path) -> Path:
    """Makes a virtual environment, in which Debian's NumPy is, and says where its packages stand."""
    venv.create(folder, system_site_packages=True, symlinks=True)
    return folder / f"lib/python{sysconfig.get_python_version()}/site-packages"


def test_wheel_holds_the_package_and_works_elsewhere(tmp_path: Path) -> None:
    run(
        sys.executable,
        "-m",
        "pip",
        "wheel",
        "--no-build-isolation",
        "--no-deps",
        "--no-index",
        "-w",
        tmp_path,
        ROOT,
    )
    [path] = tmp_path.glob("*.whl")
    with zipfile.ZipFile(path) as wheel:
        held = {name for name in wheel.namelist() if ".dist-info/" not in name}
        assert held == {f"igs/{name}" for name in MODULES | {COMPILED}}
        compiled = wheel.read(f"igs/{COMPILED}")
        assert b".symtab" not in compiled and b"libigs" not in compiled
        [metadata] = [name for name in wheel.namelist() if name.endswith("/METADATA")]
        version = program.run("--version").stdout.split()[1].decode()
        assert f"\nVersion: {version}\n" in wheel.read(metadata).decode()
    packages = new_environment(tmp_path / "venv")
    run(sys.executable, "-m", "pip", "--python", tmp_path / "venv", "install", "--no-index", path)
    assert_works(tmp_path / "venv/bin/python", packages / "igs")


def test_source_archive_holds_what_the_build_reads(tmp_path: Path) -> None:
    run(sys.executable, "-m", "build", "--no-isolation", "--sdist", "-o", tmp_path, ROOT)
    [path] = tmp_path.glob("*.tar.gz")
    with tarfile.open(path) as archive:
        archive.extractall(tmp_path)
    source = tmp_path / path.name.removesuffix(".tar.gz")
    inputs = run("ninja", "-C", BUILD, "-t", "inputs", "igs_python").split()
    objects = [name for name in inputs if name.endswith(".o")]
    read = [
        line.strip()
        for line in run("ninja", "-C", BUILD, "-t", "deps", *objects).splitlines()
        if line[:1] == " "
    ]
    ours = {
        path for path in ((BUILD / name).resolve() for name in inputs + read) if path.is_relative_to(ROOT)
    }
    names = {path.relative_to(ROOT) for path in ours if not path.is_relative_to(ROOT / "build")}
    assert len(names) > 500 and [name for name in names if not (source / name).exists()] == []
    options = ("--preset=release", "-DIGS_BUILD_TOOL=OFF", "-DIGS_BUILD_PYTHON=ON")
    run("cmake", "-S", source, "-B", tmp_path / "build", *options)


@pytest.mark.parametrize("build", [BUILD, SHARED_BUILD], ids=["static", "shared"])
def test_cmake_installs_where_python_looks(build: Path, tmp_path: Path) -> None:
    packages = new_environment(tmp_path / "venv")
    for component in ("igs_runtime", "igs_python"):
        run("cmake", "--install", build, "--prefix", tmp_path / "venv", "--component", component)
    assert_works(tmp_path / "venv/bin/python", packages / "igs")
    for prefix, folder in ("usr", "lib/python3"), (
        "usr/local",
        f"lib/python{sysconfig.get_python_version()}",
    ):
        run(
            "cmake",
            "--install",
            build,
            "--prefix",
            f"/{prefix}",
            "--component",
            "igs_python",
            DESTDIR=tmp_path,
        )
        assert (tmp_path / prefix / folder / "dist-packages/igs" / COMPILED).exists()


def test_debian_package(tmp_path: Path) -> None:
    components = "CPACK_COMPONENTS_ALL=igs_runtime;igs_python"
    run(
        "cpack", "-G", "DEB", "-B", tmp_path, "--config", SHARED_BUILD / "CPackConfig.cmake", "-D", components
    )
    for path in tmp_path.glob("*.deb"):
        run("dpkg-deb", "--extract", path, tmp_path / "root")
    [path] = tmp_path.glob("python3-igs_*.deb")
    depends = run("dpkg-deb", "--field", path, "Depends")
    for needed in ("python3 (>= 3.", "python3 (<< 3.", "python3-numpy", "libigs0.1 (= ", "libstdc++6"):
        assert needed in depends, depends
    assert "py3clean" in run("dpkg-deb", "--info", path, "prerm")
    usr = tmp_path / "root/usr"
    package = usr / "lib/python3/dist-packages/igs"
    assert {each.name for each in package.iterdir()} == MODULES | {COMPILED}
    assert (usr / "share/doc/python3-igs/copyright").exists()
    assert "RUNPATH" not in run("readelf", "--dynamic", package / COMPILED)
    [library] = usr.glob("lib/*/libigs.so.*.*.*")
    assert_works(sys.executable, package, PYTHONPATH=package.parent, LD_LIBRARY_PATH=library.parent)
