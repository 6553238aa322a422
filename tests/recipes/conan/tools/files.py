import fnmatch
import os
import shutil


def copy(recipe, pattern, src, dst):
    """A pattern reaches into folders, as with the real one."""
    copied = 0
    for folder, folders, files in os.walk(src):
        folders[:] = [name for name in folders if name not in ("build", ".git")]
        for name in files:
            path = os.path.relpath(os.path.join(folder, name), src)
            if fnmatch.fnmatch(path, pattern):
                target = os.path.join(dst, path)
                os.makedirs(os.path.dirname(target), exist_ok=True)
                shutil.copy2(os.path.join(folder, name), target)
                copied += 1
    assert copied, f"nothing is called {pattern}"


def load(recipe, path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def rmdir(recipe, path):
    shutil.rmtree(path, ignore_errors=True)
