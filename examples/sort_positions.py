#!/usr/bin/env python3
"""Sorts positions, FENs one a line on standard input, by their value for the side to move, the best one first.

    sort_positions.py network.dat < positions.txt

Behind each stands which of its pieces is worth most to the side to move, and that piece's features.
"""

import sys

import quorvane


def best_piece(network, fen):
    white_to_move = fen.split()[1] == "w"
    own = [piece for piece in network.explain(fen) if piece.white == white_to_move]
    return max(own, key=lambda piece: piece.value)


def main():
    fens = [line.strip() for line in sys.stdin if line.strip()]
    with quorvane.open_network(sys.argv[1]) as network:
        for value, fen in sorted(zip(network.evaluate_many(fens), fens), reverse=True):
            piece = best_piece(network, fen)
            print(f"{value:+8.2f}  {fen}")
            print(f"          {piece.symbol}{piece.square_name} {piece.value:+.2f}: {', '.join(piece.features)}")


if __name__ == "__main__":
    main()
