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
ONE_OF_EACH_TYPE = """
8/8/3k4/8/8/8/8/R3K3 w
8/8/3k4/8/4P3/8/8/4K3 b
8/8/3k4/8/8/8/8/Q3K3 b
8/8/3k4/8/8/8/8/2B1KB2 w
8/2p5/3k4/8/4P3/8/8/4K3 b
8/8/3k4/8/8/8/8/2B1K1N1 w
8/2k5/2p5/2P5/2K5/3N4/8/8 w
8/2k2p2/2p5/2P5/2K5/3N4/5PP1/6r1 b
3r4/2k2p2/2p3p1/2P4p/2K5/3N2P1/3R1P1P/8 w
3r4/2k2pb1/2p3p1/2P4p/2K2P2/P2NR1PP/3R4/6r1 b
3rr1k1/5pb1/2p3p1/1pP4p/p4P2/P2NRBPP/3R4/6K1 w
3rr1k1/q4pb1/2p3p1/1pP4p/p4P2/PQ1NRBPP/3R4/6K1 b
r2qr1k1/5ppp/p1np1n2/1p6/4P3/1BP2N1P/PP3PP1/R2QR1K1 w
r1bq1rk1/pp2bppp/2n1pn2/3p4/3P4/2NBPN2/PP3PPP/R1BQ1RK1 b
""".split("\n")[1:-1]


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
