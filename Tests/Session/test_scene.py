"""The scene that scripts/run.sh plays where there is no display."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent


class SceneTest(unittest.TestCase):
    def test_the_scene_leaves_the_pictures_of_the_readme(self):
        with tempfile.TemporaryDirectory() as folder:
            script = ROOT / "scripts" / "scene.py"
            program = os.environ["PERCHLY_PROGRAM"]
            subprocess.run([sys.executable, "-B", script, program, folder], check=True)
            left = sorted(picture.name for picture in Path(folder).glob("*.png"))
        self.assertEqual(left, sorted(picture.name for picture in (ROOT / "docs").glob("*.png")))
        self.assertGreaterEqual(len(left), 5)


if __name__ == "__main__":
    unittest.main(verbosity=2)
