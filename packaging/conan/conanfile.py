from pathlib import Path

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rmdir

required_conan_version = ">=2.0"


class IgsRecipe(ConanFile):
    name = "igs"
    description = "Read, check, repair and write IGES files"
    license = "Apache-2.0"
    topics = ("iges", "cad", "file-format")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "fPIC": [True, False], "tool": [True, False]}
    default_options = {"shared": False, "fPIC": True, "tool": False}
    implements = ["auto_shared_fpic"]

    @property
    def _root(self):
        return Path(self.recipe_folder).parent.parent

    def set_version(self):
        listing = load(self, self._root / "CMakeLists.txt")
        self.version = listing.split("project(igs VERSION ")[1].split()[0]

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "LICENSE", "cmake/*", "igs/*", "tools/*"):
            copy(self, pattern, self._root, self.export_sources_folder)

    def requirements(self):
        if self.options.tool:
            self.requires("cli11/[>=2.3 <3]")
            self.requires("nlohmann_json/[>=3.11 <4]")
            self.requires("zlib/[>=1.2.11 <2]")

    def validate(self):
        check_min_cppstd(self, 20)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["BUILD_TESTING"] = False
        toolchain.cache_variables["IGS_BUILD_TOOL"] = bool(self.options.tool)
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", self.source_folder, Path(self.package_folder) / "licenses")
        rmdir(self, Path(self.package_folder) / "lib" / "cmake")  # CMakeDeps and PkgConfigDeps make these
        rmdir(self, Path(self.package_folder) / "lib" / "pkgconfig")

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "igs")
        for name, library, package in (("igs", "igs", "igs"), ("shape", "igs_shape", "igs-shape")):
            component = self.cpp_info.components[name]
            component.libs = [library]
            component.set_property("cmake_target_name", f"igs::{name}")
            component.set_property("pkg_config_name", package)
        igs, shape = self.cpp_info.components["igs"], self.cpp_info.components["shape"]
        igs.cxxflags = [] if self.settings.compiler == "msvc" else ["-fno-gnu-keywords"]
        igs.defines = [] if self.options.shared else ["IGS_STATIC"]
        shape.requires = ["igs"]
        if self.settings.os == "Linux":
            shape.system_libs = ["pthread"]
        if self.options.tool:
            igs.requires = ["cli11::cli11", "nlohmann_json::nlohmann_json", "zlib::zlib"]
