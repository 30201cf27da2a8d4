#!/usr/bin/env python3
"""clock_games.py PROGRAM GAMES FENS [NETWORK]: lets quorvane-play play against itself at 1 s + 0.01 s.

FENS has a start position a line. Games go on until no move is left, or for 160 plies. Tells how many flags fell, how
near one came to it, and how much time was lost at most between the program's clock and this one.
"""

import gc
import os
import re
import subprocess
import sys
import time


class Player:
    def __init__(self, program, network):
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0)
        self.unread = b""
        self.reported = 0
        if network:
            self.say(f"setoption name Network value {network}")

    def say(self, line):
        self.process.stdin.write(line.encode() + b"\n")

    def hear(self, wanted):
        while True:
            while b"\n" not in self.unread:
                self.unread += os.read(self.process.stdout.fileno(), 65536)
            line, self.unread = self.unread.split(b"\n", 1)
            if said := re.search(rb" time (\d+)", line):
                self.reported = int(said[1])
            if line.startswith(wanted):
                return line.decode()


def main():
    program, games, fens = sys.argv[1:4]
    gc.disable()  # its pauses would be taken for the program's
    starts = open(fens, encoding="ascii").read().split("\n")[:-1]
    players = [Player(program, sys.argv[4] if len(sys.argv) > 4 else "") for _ in range(2)]
    moves_made = flags = 0
    closest, lost = 1e9, 0.0
    for game in range(int(games)):
        for player in players:
            player.say("ucinewgame\nisready")
            player.hear(b"readyok")
        fen = starts[game % len(starts)]
        names = ("wtime", "btime") if " w " in fen else ("btime", "wtime")
        left, moves = [1000.0, 1000.0], []
        for ply in range(160):
            turn = ply % 2
            players[turn].say(f"position fen {fen} moves {' '.join(moves)}")
            clocks = " ".join(f"{name} {int(time_left)}" for name, time_left in zip(names, left))
            begin = time.perf_counter()
            players[turn].say(f"go {clocks} winc 10 binc 10")
            move = players[turn].hear(b"bestmove").split()[1]
            taken = 1000 * (time.perf_counter() - begin)
            moves_made += 1
            closest, lost = min(closest, left[turn] - taken), max(lost, taken - players[turn].reported)
            left[turn] += 10 - taken
            if left[turn] < 10:
                flags += 1
            if left[turn] < 10 or move == "(none)":
                break
            moves.append(move)
    print(f"{games} games, {moves_made} moves: {flags} flags fell, the closest move {closest:.0f} ms before its own")
    print(f"between the program's clock and this one {lost:.0f} ms were lost at most")


main()
