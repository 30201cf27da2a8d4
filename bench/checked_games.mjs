// node checked_games.mjs PROGRAM GAMES NODES [NETWORK]: lets quorvane-play play against itself and, every other game,
// against a player of random moves, and checks every move, and how each game ends, by chess.js (npm install chess.js).
import { spawn } from 'node:child_process';
import { createInterface } from 'node:readline';
import { createRequire } from 'node:module';

const { Chess } = createRequire(process.cwd() + '/')('chess.js');
const [program, gameCount, nodes, network] = process.argv.slice(2);

class Engine {
  constructor() {
    this.process = spawn(program, [], { stdio: ['pipe', 'pipe', 'inherit'] });
    this.waiting = [];
    createInterface({ input: this.process.stdout }).on('line', (line) => {
      if (this.waiting.length && line.startsWith(this.waiting[0].wanted)) this.waiting.shift().resolve(line);
    });
    if (network) this.say(`setoption name Network value ${network}`);
  }
  say(line) { this.process.stdin.write(line + '\n'); }
  hear(wanted) { return new Promise((resolve) => this.waiting.push({ wanted, resolve })); }
  async ask(line, wanted) { const answer = this.hear(wanted); this.say(line); return answer; }
}

let seed = 1;
const random = (below) => { seed = (seed * 48271) % 2147483647; return seed % below; };
const results = {};
let moves = 0;
const engines = [new Engine(), new Engine()];
for (let game = 0; game < Number(gameCount); ++game) {
  const againstRandom = game % 2 === 1;
  const board = new Chess();
  for (let ply = 0; ply < 4; ++ply) { const all = board.moves(); board.move(all[random(all.length)]); }
  const opening = board.history({ verbose: true }).map((move) => move.lan);
  for (const engine of engines) { engine.say('ucinewgame'); await engine.ask('isready', 'readyok'); }
  const made = [...opening];
  while (!board.isGameOver() && made.length < 500) {
    const turn = board.turn();
    let move;
    if (againstRandom && turn === 'b') {
      const all = board.moves({ verbose: true });
      move = all[random(all.length)].lan;
    } else {
      const engine = engines[turn === 'w' ? 0 : 1];
      engine.say(`position startpos moves ${made.join(' ')}`);
      move = (await engine.ask(`go nodes ${nodes}`, 'bestmove')).split(' ')[1];
      ++moves;
    }
    const legal = board.moves({ verbose: true }).some((one) => one.lan === move);
    if (!legal) { console.log(`game ${game + 1}: ${move} is not legal in ${board.fen()}`); process.exit(1); }
    board.move({ from: move.slice(0, 2), to: move.slice(2, 4), promotion: move[4] });
    made.push(move);
  }
  const end = board.isCheckmate() ? `mate of ${board.turn()}` : board.isStalemate() ? 'stalemate'
    : board.isInsufficientMaterial() ? 'insufficient material' : board.isThreefoldRepetition() ? 'threefold'
    : board.isDraw() ? 'fifty moves' : '500 plies';
  const key = `${againstRandom ? 'against random moves' : 'against itself'}: ${end}`;
  results[key] = (results[key] ?? 0) + 1;
}
for (const engine of engines) engine.say('quit');
console.log(`${gameCount} games, ${moves} moves by the program, all legal`);
for (const [key, count] of Object.entries(results).sort()) console.log(`${String(count).padStart(5)}  ${key}`);
