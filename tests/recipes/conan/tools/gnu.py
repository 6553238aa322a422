from conan.tools.cmake import CMakeDeps as PkgConfigDeps
