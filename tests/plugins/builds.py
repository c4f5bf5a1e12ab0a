"""Builds of the plugins' tests, and what starts their results."""

import fcntl
import os
import re
import shutil
import subprocess
import sys
import time
import zipfile

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
WORK = os.path.join(ROOT, "build", "plugins", "tests")
REPOSITORY = os.path.join(ROOT, "dist", "repository")
CACHE = os.environ.get("TARN_CACHE", os.path.join(
    os.environ.get("XDG_CACHE_HOME", os.path.expanduser("~/.cache")), "tarn"))
LOCAL_REPOSITORY = os.path.join(CACHE, "maven")
RUNTIMES = os.environ.get("TARN_RUNTIMES", os.path.join(CACHE, "runtimes"))
PREPARED = 1_000_000_000  # when a prepared cache was made
TOOLCHAIN = os.path.join(ROOT, "scripts", "lib", "toolchain.sh")
SETTINGS = """<settings>
  <profiles>
    <profile>
      <id>tarn</id>
      <repositories>
        <repository>
          <id>tarn</id>
          <url>file://{repository}</url>
        </repository>
      </repositories>
      <pluginRepositories>
        <pluginRepository>
          <id>tarn</id>
          <url>file://{repository}</url>
        </pluginRepository>
      </pluginRepositories>
    </profile>
  </profiles>
  <activeProfiles>
    <activeProfile>tarn</activeProfile>
  </activeProfiles>
</settings>
"""

_locks = []


def version():
    """The project's version."""
    with open(os.path.join(ROOT, "CMakeLists.txt"), encoding="utf-8") as file:
        return re.search(r"^project\(tarn VERSION ([0-9.]+)", file.read(), re.MULTILINE).group(1)


def environment():
    java = subprocess.check_output([TOOLCHAIN, "jdk"], text=True).strip()
    return os.environ | {"JAVA_HOME": java, "TARN_CACHE": CACHE}


def prepare():
    """Waits for the tests of another checkout, which use the same cache, and removes their plugins from it."""
    os.makedirs(LOCAL_REPOSITORY, exist_ok=True)
    if not _locks:
        _locks.append(open(LOCAL_REPOSITORY + ".lock", "w", encoding="ascii"))
        fcntl.flock(_locks[0], fcntl.LOCK_EX)
    shutil.rmtree(os.path.join(LOCAL_REPOSITORY, "io", "github", "tarn-launcher"), ignore_errors=True)


def write_settings(path):
    """Writes Maven settings by which a build finds the plugins where they were built."""
    with open(path, "w", encoding="utf-8") as file:
        file.write(SETTINGS.format(repository=REPOSITORY))


def prepare_companion(cache):
    """Copies the companion program that a build has unpacked into a cache to which nothing can be written."""
    shutil.copytree(os.path.join(CACHE, "companion"), os.path.join(cache, "companion"))
    for folder, _, files in os.walk(cache, topdown=False):
        for path in (*(os.path.join(folder, name) for name in files), folder):
            os.utime(path, (PREPARED, PREPARED))
            os.chmod(path, 0o555)


def run(command, folder, seconds, cache=CACHE):
    """Runs a build to its end: (exit code, everything that it printed)."""
    done = subprocess.run(command, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, timeout=seconds, check=False,
                          env=environment() | {"TARN_CACHE": cache})
    return done.returncode, done.stdout.decode(errors="replace")


def maven(folder, *arguments, seconds=900, cache=CACHE):
    """Runs Maven in a folder, with what it downloads in the shared cache, and a cache for the companion program."""
    return run(["mvn", "--batch-mode", "--no-transfer-progress", f"-Dmaven.repo.local={LOCAL_REPOSITORY}",
                *arguments], folder, seconds, cache)


def gradle_installation():
    """The folder of Gradle, which is put together unless it is there."""
    return subprocess.check_output([sys.executable, os.path.join(ROOT, "scripts", "lib", "assemble_gradle.py")],
                                   text=True, env=environment()).strip()


def link_runtime(application, feature="21"):
    """Gives an application a runtime of its own without copying it."""
    target = os.path.join(application, "jre64")
    if not os.path.exists(target):
        os.symlink(os.path.join(RUNTIMES, feature), target)


def start(application, name, *arguments, seconds=300):
    """Starts an application under Wine, waits for its end and returns what it printed."""
    done = subprocess.run(["wine", os.path.join(application, name + ".exe"), *arguments], cwd=application,
                          stdin=subprocess.DEVNULL, capture_output=True, timeout=seconds, check=False)
    return done.stdout.decode(errors="replace").strip()


def windows_path(path):
    """The path by which programs under Wine find a file of this machine."""
    return "Z:" + path.replace("/", "\\")


def local_application_data():
    """The user's folder %LOCALAPPDATA% under Wine."""
    path = subprocess.run(["wine", "cmd", "/c", "echo %LOCALAPPDATA%"], stdin=subprocess.DEVNULL, capture_output=True,
                          timeout=120, check=True).stdout.decode().strip()
    return subprocess.check_output(["winepath", "-u", path], text=True, stdin=subprocess.DEVNULL, timeout=120).strip()


def run_silently(program, *arguments, seconds=300):
    """Runs a program that shows nothing under Wine, and raises an error if it fails."""
    subprocess.run(["wine", program, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, timeout=seconds, check=True)


def shows_window(application, name, title, seconds=240):
    """Starts an application under Wine, waits until a window of this title is on the screen, and ends it."""
    process = subprocess.Popen(["wine", os.path.join(application, name + ".exe")], cwd=application,
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline and process.poll() is None:
            tree = subprocess.run(["xwininfo", "-root", "-tree"], capture_output=True, check=False).stdout
            if f'"{title}"'.encode() in tree:
                return True
            time.sleep(0.1)
        return False
    finally:
        process.kill()
        process.wait()


def replace(path, old, new):
    """Replaces a text in a file, which has to contain it."""
    with open(path, encoding="utf-8") as file:
        text = file.read()
    if old not in text:
        raise AssertionError(f"{path} does not contain {old}")
    with open(path, "w", encoding="utf-8") as file:
        file.write(text.replace(old, new))


def entries(path):
    """The names in a zip file."""
    with zipfile.ZipFile(path) as file:
        return file.namelist()
