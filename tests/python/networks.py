"""Networks for the tests."""

from __future__ import annotations

import random
import struct
import subprocess
from pathlib import Path


def learn(program: str, games: Path, folder: Path) -> Path:
    subprocess.run([program], input=f"{games}\nno\n", text=True, cwd=folder, check=True, stdout=subprocess.DEVNULL)
    return folder / "network.dat"


def write_random(path: Path, seed: int) -> Path:
    """For every type and kind patterns of one bit, and some of two, so that each feature has a weight."""
    weights = random.Random(seed)
    records = [struct.pack("<I", 1)]
    for kind in range(6):
        records.append(struct.pack("<III", 0, 0, kind))
        for position_type in range(14):
            records.append(struct.pack("<III", 0, 1, position_type))
            for bit in range(31):
                root, child = 1 << bit, 1 << weights.randrange(bit + 1, 32)
                records.append(struct.pack("<IIfi", root, child, weights.uniform(-5, 5), 2))
                records.append(struct.pack("<IIfi", root | child, 0, weights.uniform(-5, 5), 1))
    records.append(struct.pack("<II", 0, 2))
    path.write_bytes(b"".join(records))
    return path
