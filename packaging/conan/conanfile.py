import os
import re

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rmdir
from conan.tools.gnu import PkgConfigDeps

# Each component with the package that it is built on, and that one's component.
COMPONENTS = {
    "html": ("gumbo-parser/0.10.1", "gumbo-parser::gumbo-parser"),
    "hunspell": ("hunspell/1.7.2", "hunspell::hunspell"),
    "unicode": ("icu/74.2", "icu::icu-uc"),
}
SOURCES = ("CMakeLists.txt", "LICENSE", "cmake/*", "src/*", "host/CMakeLists.txt",
           "host/Component.cmake", "host/cli/*", "host/html/*", "host/spelling/*", "host/unicode/*")


class FormeConan(ConanFile):
    """Builds the tree that it lies in."""

    name = "forme"
    description = ("The document model of a what-you-see-is-what-you-get editor "
                   "for page-oriented documents")
    license = "Apache-2.0"
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    # Without fPIC: the objects always are position independent.
    options = {name: [True, False] for name in ("shared", "tools", *COMPONENTS)}
    default_options = {name: False for name in options}

    def _tree(self):
        return os.path.join(self.recipe_folder, os.pardir, os.pardir)

    def _components(self):
        return [name for name in COMPONENTS if self.options.get_safe(name)]

    def set_version(self):
        project = load(self, os.path.join(self._tree(), "CMakeLists.txt"))
        self.version = re.search(r"project\(Forme VERSION ([0-9.]+)", project).group(1)

    def export_sources(self):
        for pattern in SOURCES:
            copy(self, pattern, src=self._tree(), dst=self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def validate(self):
        check_min_cppstd(self, 20)
        if self.settings.os == "Windows":
            raise ConanInvalidConfiguration("Forme is not made for Windows")

    def requirements(self):
        self.requires("expat/2.6.4")
        if self.settings.os != "Linux":
            self.requires("libiconv/1.17")
        for name in self._components():
            self.requires(COMPONENTS[name][0])
        if self.options.tools:
            self.requires("cli11/2.4.2")
            self.requires("nlohmann_json/3.11.3")

    def build_requirements(self):
        self.tool_requires("cmake/[>=3.25]")
        if self._components():
            self.tool_requires("pkgconf/2.2.0")

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["FORME_BUILD_STATIC"] = False
        toolchain.cache_variables["FORME_TESTS"] = False
        toolchain.cache_variables["FORME_TERMINAL"] = "OFF"
        toolchain.cache_variables["FORME_WARNINGS_ARE_ERRORS"] = False
        toolchain.cache_variables["FORME_CLI"] = bool(self.options.tools)
        for name in COMPONENTS:
            toolchain.cache_variables[f"FORME_{name.upper()}"] = name in self._components()
        toolchain.generate()
        CMakeDeps(self).generate()
        PkgConfigDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        copy(self, "LICENSE", src=self.source_folder,
             dst=os.path.join(self.package_folder, "licenses"))
        CMake(self).install()
        # Conan makes these itself, from what follows.
        rmdir(self, os.path.join(self.package_folder, "lib", "cmake"))
        rmdir(self, os.path.join(self.package_folder, "lib", "pkgconfig"))
        rmdir(self, os.path.join(self.package_folder, "share"))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "Forme")
        forme = self._library("forme", "forme", ["expat::expat"])
        forme.includedirs = ["include", "include/forme"]
        if not self.options.shared:
            forme.defines = ["FORME_STATIC"]
        if self.settings.os != "Linux":
            forme.requires.append("libiconv::libiconv")
        for name in self._components():
            self._library(name, f"forme-{name}", ["forme", COMPONENTS[name][1]])

    def _library(self, name, file, requires):
        component = self.cpp_info.components[name]
        component.libs = [file]
        component.requires = requires
        component.set_property("cmake_target_name", f"Forme::{name}")
        component.set_property("pkg_config_name", file)
        return component
