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
        self.cpp_info.libs = ["igs"]
        self.cpp_info.set_property("cmake_file_name", "igs")
        self.cpp_info.set_property("cmake_target_name", "igs::igs")
        self.cpp_info.set_property("pkg_config_name", "igs")
        self.cpp_info.cxxflags = [] if self.settings.compiler == "msvc" else ["-fno-gnu-keywords"]
        self.cpp_info.defines = [] if self.options.shared else ["IGS_STATIC"]
