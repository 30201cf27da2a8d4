from __future__ import annotations

import json
import os
import random
import struct
import subprocess
from pathlib import Path

import pytest

import quorvane

SOURCES = Path(os.environ["QUORVANE_SOURCES"])
GAMES = SOURCES / "examples" / "games.pgn"
KINGS = "4k3/8/8/8/8/8/8/4K3 w"
# One for each type, 0 to 13.
ONE_OF_EACH_TYPE = Path(__file__).with_name("one_of_each_type.fens").read_text().splitlines()


@pytest.fixture(scope="session")
def learned_network(tmp_path_factory):
    folder = tmp_path_factory.mktemp("learned")
    program = os.environ["QUORVANE_PROGRAM"]
    subprocess.run([program], input=f"{GAMES}\nno\n", text=True, cwd=folder, check=True, stdout=subprocess.DEVNULL)
    return folder / "network.dat"


@pytest.fixture(scope="session")
def random_network(tmp_path_factory):
    """For every type and kind patterns of one bit, and some of two, so that each feature has a weight."""
    weights = random.Random(1)
    records = [struct.pack("<I", 1)]
    for kind in range(6):
        records.append(struct.pack("<III", 0, 0, kind))
        for position_type in range(14):
            records.append(struct.pack("<III", 0, 1, position_type))
            for bit in range(31):
                root, child = 1 << bit, 1 << weights.randrange(bit + 1, 32)
                records.append(struct.pack("<IIfi", root, child, weights.uniform(-5, 5), 2))
                records.append(struct.pack("<IIfi", root | child, 0, weights.uniform(-5, 5), 1))
    path = tmp_path_factory.mktemp("random") / "network.dat"
    path.write_bytes(b"".join([*records, struct.pack("<II", 0, 2)]))
    return path


@pytest.fixture
def network(random_network):
    with quorvane.open_network(random_network) as opened:
        yield opened


@pytest.fixture
def inspect(random_network):
    """Lets quorvane-inspect explain under the network; gives what stands in its lines of JSON, one or many."""
    program = os.environ.get("QUORVANE_INSPECT") or pytest.skip("quorvane-inspect is not built")

    def explain(*arguments, given=""):
        command = [program, "explain", *map(str, arguments), str(random_network), "--json"]
        done = subprocess.run(command, input=given, text=True, check=False, capture_output=True).stdout
        return [json.loads(line) for line in done.splitlines()] if given else json.loads(done)

    return explain
