#!/usr/bin/python3
"""Runs one Windows program in the tests' own Wine: in_wine.py PROGRAM [ARGUMENT ...]"""

import subprocess
import sys

from wine_session import TEST_ZONE, wine_session

if len(sys.argv) < 2:
    sys.exit(__doc__)
with wine_session() as wine:
    result = subprocess.run(["wine", *sys.argv[1:]], env={**wine.environment, **TEST_ZONE}, stdin=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL)
sys.exit(result.returncode)
