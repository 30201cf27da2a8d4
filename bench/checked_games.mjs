// node checked_games.mjs PROGRAM GAMES HOW [NETWORK]: lets quorvane-play play against itself and, every other game,
// against a player of random moves, and checks every move, and how each game ends, by chess.js (npm install chess.js).
// HOW is "nodes N", or "clock SECONDS INCREMENT": then flags may fall.
import { spawn } from 'node:child_process';
import { createInterface } from 'node:readline';
import { createRequire } from 'node:module';

const { Chess } = createRequire(process.cwd() + '/')('chess.js');
const [program, gameCount, how, network] = process.argv.slice(2);
const [kind, first, second] = how.split(' ');

class Engine {
  constructor() {
    this.process = spawn(program, [], { stdio: ['pipe', 'pipe', 'inherit'] });
    this.waiting = [];
    createInterface({ input: this.process.stdout }).on('line', (line) => {
      const time = line.match(/ time (\d+)/);
      if (time) this.reported = Number(time[1]);
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
let moves = 0, forfeits = 0, closest = Infinity, lost = 0;
const engines = [new Engine(), new Engine()];
for (let game = 0; game < Number(gameCount); ++game) {
  const againstRandom = kind === 'nodes' && game % 2 === 1;
  const board = new Chess();
  for (let ply = 0; ply < 4; ++ply) { const all = board.moves(); board.move(all[random(all.length)]); }
  const opening = board.history({ verbose: true }).map((move) => move.lan);
  const clocks = { w: 1000 * Number(first), b: 1000 * Number(first) };
  for (const engine of engines) { engine.say('ucinewgame'); await engine.ask('isready', 'readyok'); }
  const made = [...opening];
  let flag = false;
  while (!board.isGameOver() && made.length < 500 && !flag) {
    const turn = board.turn();
    let move;
    if (againstRandom && turn === 'b') {
      const all = board.moves({ verbose: true });
      move = all[random(all.length)].lan;
    } else {
      const engine = engines[turn === 'w' ? 0 : 1];
      engine.say(`position startpos moves ${made.join(' ')}`);
      const increment = Math.round(1000 * Number(second ?? 0));
      const go = kind === 'nodes' ? `go nodes ${first}`
        : `go wtime ${Math.floor(clocks.w)} btime ${Math.floor(clocks.b)} winc ${increment} binc ${increment}`;
      const begin = performance.now();
      move = (await engine.ask(go, 'bestmove')).split(' ')[1];
      if (kind === 'clock') {
        const taken = performance.now() - begin;
        closest = Math.min(closest, clocks[turn] - taken);
        lost = Math.max(lost, taken - engine.reported);
        clocks[turn] -= taken;
        if (clocks[turn] < 0) { ++forfeits; flag = true; }
        clocks[turn] += increment;
      }
      ++moves;
    }
    const legal = board.moves({ verbose: true }).some((one) => one.lan === move);
    if (!legal) { console.log(`game ${game + 1}: ${move} is not legal in ${board.fen()}`); process.exit(1); }
    board.move({ from: move.slice(0, 2), to: move.slice(2, 4), promotion: move[4] });
    made.push(move);
  }
  const end = board.isCheckmate() ? `mate of ${board.turn()}` : board.isStalemate() ? 'stalemate'
    : board.isInsufficientMaterial() ? 'insufficient material' : board.isThreefoldRepetition() ? 'threefold'
    : board.isDraw() ? 'fifty moves' : flag ? 'time' : '500 plies';
  const key = `${againstRandom ? 'against random moves' : 'against itself'}: ${end}`;
  results[key] = (results[key] ?? 0) + 1;
}
for (const engine of engines) engine.say('quit');
console.log(`${gameCount} games, ${moves} moves by the program, all legal`);
for (const [key, count] of Object.entries(results).sort()) console.log(`${String(count).padStart(5)}  ${key}`);
if (kind === 'clock') {
  console.log(`${forfeits} flags fell; the closest move came ${closest.toFixed(0)} ms before its flag`);
  console.log(`between the program's clock and this one ${lost.toFixed(0)} ms were lost at most`);
}
