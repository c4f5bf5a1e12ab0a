"""The module java.base of a JDK for Windows, made from a Java runtime for Windows.

No registry that the tests may use has a JDK for Windows with its jmods folder. A runtime has the same classes in its
image, and the same libraries.
"""

import os
import re
import shutil
import subprocess


def feature_of(java_home):
    """The feature release of a JDK: "17"."""
    with open(os.path.join(java_home, "release"), encoding="utf-8") as file:
        return re.search(r'^JAVA_VERSION="(\d+)', file.read(), re.MULTILINE).group(1)


def create(java_home, runtimes, parent):
    """Makes a folder with java.base.jmod of the JDK's version from one of the runtimes, unless it is there, and returns it.
    jlink has to be told to generate no classes: the runtime's image has them already."""
    runtime = os.path.join(runtimes, feature_of(java_home))
    folder = os.path.join(parent, "jmods-" + feature_of(java_home))
    if os.path.isdir(folder):
        return folder

    def tool(name, *arguments):
        subprocess.run([os.path.join(java_home, "bin", name), *arguments], check=True, timeout=600,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    work = folder + ".work"
    shutil.rmtree(work, ignore_errors=True)
    os.makedirs(os.path.join(work, "jmods"))
    tool("jimage", "extract", "--dir", os.path.join(work, "image"), "--include", "regex:/java.base/.*",
         os.path.join(runtime, "lib", "modules"))
    shutil.copytree(os.path.join(runtime, "lib"), os.path.join(work, "lib"), ignore=shutil.ignore_patterns("modules"))
    tool("jmod", "create", "--class-path", os.path.join(work, "image", "java.base"), "--cmds",
         os.path.join(runtime, "bin"), "--libs", os.path.join(work, "lib"), "--config",
         os.path.join(runtime, "conf"), os.path.join(work, "jmods", "java.base.jmod"))
    os.rename(os.path.join(work, "jmods"), folder)
    shutil.rmtree(work)
    return folder
