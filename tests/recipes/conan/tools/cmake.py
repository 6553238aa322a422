import subprocess


def cmake_layout(recipe):
    pass


class CMakeDeps:
    def __init__(self, recipe):
        pass

    def generate(self):
        pass


class CMakeToolchain:
    def __init__(self, recipe):
        self.recipe = recipe
        self.cache_variables = {}

    def generate(self):
        self.recipe.cache_variables = self.cache_variables


class CMake:
    def __init__(self, recipe):
        self.recipe = recipe

    def configure(self):
        recipe = self.recipe
        variables = {**recipe.cache_variables, "BUILD_SHARED_LIBS": recipe.options.shared,
                     "CMAKE_BUILD_TYPE": recipe.settings.build_type, "CMAKE_UNITY_BUILD": True,
                     "CMAKE_INSTALL_LIBDIR": "lib", "CMAKE_INSTALL_PREFIX": recipe.package_folder}
        self._run("-S", recipe.source_folder, "-B", recipe.build_folder, "-G", "Ninja",
                  *(f"-D{name}={'ON' if value is True else 'OFF' if value is False else value}"
                    for name, value in variables.items()))

    def build(self):
        self._run("--build", self.recipe.build_folder, "-j2")

    def install(self):
        self._run("--install", self.recipe.build_folder)

    @staticmethod
    def _run(*arguments):
        subprocess.run(["cmake", *arguments], check=True, stdout=subprocess.DEVNULL)
