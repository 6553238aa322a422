"""Stands in for Conan where that is not installed: as much of it as the recipe calls, and it does
what is documented."""

from types import SimpleNamespace


class Options(SimpleNamespace):
    def get_safe(self, name):
        return getattr(self, name, None)


class Component:
    def __init__(self):
        self.libs, self.requires, self.defines = [], [], []
        self.includedirs = ["include"]
        self.properties = {}

    def set_property(self, name, value):
        self.properties[name] = value


class CppInfo(Component):
    def __init__(self):
        super().__init__()
        self.components = Components()


class Components(dict):
    def __missing__(self, name):
        self[name] = Component()
        return self[name]


class ConanFile:
    def __init__(self, recipe_folder, work, options):
        self.recipe_folder = recipe_folder
        self.export_sources_folder = self.source_folder = f"{work}/source"
        self.build_folder = f"{work}/build"
        self.package_folder = f"{work}/package"
        self.settings = SimpleNamespace(os="Linux", build_type="Release")
        assert set(options) <= set(self.options)
        self.options = Options(**{**self.default_options, **options})
        self.cpp_info = CppInfo()
        self.references, self.tools, self.cache_variables = [], [], {}

    def requires(self, reference):
        self.references.append(reference)

    def tool_requires(self, reference):
        self.tools.append(reference)
