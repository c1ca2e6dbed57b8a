"""tidy.py BUILD_FOLDER: runs clang-tidy on the program's sources in their compile batches. Checks a
batch that passed again only if its command, an included file or .clang-tidy changes."""

import hashlib
import json
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

# clang-tidy treats the sources of a batch as headers: report and analyse the program's, but not
# Qt's generated ones.
OPTIONS = [
    f"-header-filter=^{re.escape(str(Path.cwd()))}/Sources/",
    "-extra-arg=-Xclang",
    "-extra-arg=-analyzer-opt-analyze-headers",
    # A fifth of the default, which takes minutes for some batches and has found nothing more.
    "-extra-arg=-Xclang",
    "-extra-arg=-analyzer-config",
    "-extra-arg=-Xclang",
    "-extra-arg=max-nodes=40000",
]


def batches(build):
    """Returns each batch's file and a digest of everything that affects its result."""
    root = str(Path.cwd())
    dependencies, output = {}, None
    for line in subprocess.check_output(["ninja", "-C", build, "-t", "deps"], text=True).splitlines():
        if line.startswith(" "):
            dependencies[output].append(line.strip())
        elif line:
            output = line.split(":")[0]
            dependencies[output] = []
    for entry in json.loads((build / "compile_commands.json").read_text()):
        if not re.search(r"/Sources/.*/Unity/", entry["file"]):
            continue
        output = re.search(r" -o (\S+)", entry["command"]).group(1)
        digest = hashlib.sha256((Path(".clang-tidy").read_text() + entry["command"]).encode())
        for path in sorted(dependencies.get(output, [])):
            path = build / path
            if str(path).startswith(root) and path.exists():
                digest.update(path.read_bytes())
        yield entry["file"], digest.hexdigest()


def main():
    build = Path(sys.argv[1]).resolve()
    passed = build / "tidy-passed"
    passed.mkdir(exist_ok=True)

    def check(batch):
        file, digest = batch
        stamp = passed / digest
        if stamp.exists():
            return True
        result = subprocess.run(["clang-tidy", "--quiet", "-p", build, *OPTIONS, file],
                                capture_output=True, text=True)
        if result.returncode == 0:
            stamp.touch()
        else:
            print(result.stdout, result.stderr, sep="\n", flush=True)
        return result.returncode == 0

    todo = list(batches(build))
    done = []
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for ok in pool.map(check, todo):
            done.append(ok)
            print(f"\r  {len(done)} of {len(todo)} batches", end="", flush=True)
    print()
    sys.exit(0 if all(done) else 1)


if __name__ == "__main__":
    main()
