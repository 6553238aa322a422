"""Builds the package of the Conan recipe, with the stand-in for Conan beside this file, and a
program with what the recipe says of the package.
    run_conanfile.py WORK static|shared"""

import os
import runpy
import shutil
import subprocess
import sys

sys.dont_write_bytecode = True
HERE = os.path.dirname(os.path.abspath(__file__))
TREE = os.path.dirname(os.path.dirname(HERE))
RECIPE = os.path.join(TREE, "packaging", "conan", "conanfile.py")
sys.path.insert(0, HERE)


def recipe_class():
    return runpy.run_path(RECIPE)["FormeConan"]


def create(work, shared):
    shutil.rmtree(f"{work}/source", ignore_errors=True)
    shutil.rmtree(f"{work}/package", ignore_errors=True)
    options = {"shared": shared, "html": True, "hunspell": True, "unicode": True}
    recipe = recipe_class()(os.path.dirname(RECIPE), work, options)
    for step in ("set_version", "export_sources", "layout", "validate", "requirements",
                 "build_requirements", "generate", "build", "package", "package_info"):
        getattr(recipe, step)()
    return recipe


def check(recipe, shared):
    """What the recipe says of the package is in it."""
    packages = {reference.split("/")[0] for reference in recipe.references}
    ending = "so" if shared else "a"
    assert set(recipe.cpp_info.components) == {"forme", "html", "hunspell", "unicode"}
    for name, component in recipe.cpp_info.components.items():
        paths = [f"lib/lib{lib}.{ending}" for lib in component.libs] + component.includedirs
        for path in paths:
            assert os.path.exists(os.path.join(recipe.package_folder, path)), path
        for needed in component.requires:
            package = needed.split("::")[0]
            assert package in packages or needed in recipe.cpp_info.components, (name, needed)


def build_program(recipe, work):
    forme = recipe.cpp_info.components["forme"]
    package = recipe.package_folder
    program = f"{work}/edit"
    # The rest of the requirements is the system's.
    subprocess.run([os.environ.get("CXX", "g++"), "-std=c++20", f"{TREE}/docs/examples/edit.cpp",
                    *(f"-I{package}/{folder}" for folder in forme.includedirs),
                    *(f"-D{name}" for name in forme.defines),
                    f"-L{package}/lib", f"-Wl,-rpath,{package}/lib",
                    *(f"-l{lib}" for lib in forme.libs), "-lexpat", "-o", program], check=True)
    subprocess.run([program, f"{TREE}/samples/letter.xml", f"{work}/edited.xml"],
                   check=True, stdout=subprocess.DEVNULL)


def main(work, kind):
    recipe = create(work, kind == "shared")
    check(recipe, kind == "shared")
    build_program(recipe, work)
    print("ok: version", recipe.version, "requires", *recipe.references)


main(*sys.argv[1:])
