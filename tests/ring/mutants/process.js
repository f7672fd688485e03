'use strict';
// Runs a test program in a folder of its own, with a limit of time and one of memory.

const fs = require('fs');
const os = require('os');
const path = require('path');
const { spawn } = require('child_process');

const memory = 8 << 20;  // kilobytes of addresses
const fileSize = 1 << 20;  // blocks

// Ends with { status, seconds, said }; status is a number, a signal or 'time'.
function runProgram(command, { number = 0, hits = '', limit = 120 } = {}) {
  const home = fs.mkdtempSync(path.join(os.tmpdir(), 'mutant-'));
  const env = { ...process.env, TMPDIR: home, ZV_MUTANT: String(number), ZV_MUTANT_HITS: hits };
  if (!hits) delete env.ZV_MUTANT_HITS;
  const limited = `ulimit -v ${memory} -f ${fileSize} -c 0; exec "$@"`;
  const begun = Date.now();
  return new Promise(resolve => {
    const log = path.join(home, 'said.log');
    const out = fs.openSync(log, 'w');
    const child = spawn('bash', ['-c', limited, 'test', ...command],
      { cwd: home, env, detached: true, stdio: ['ignore', out, out] });
    fs.closeSync(out);
    let late = false;
    const end = () => { try { process.kill(-child.pid, 'SIGKILL'); } catch { /* has ended */ } };
    const timer = setTimeout(() => { late = true; end(); }, limit * 1000);
    child.on('close', (code, signal) => {
      clearTimeout(timer);
      end();
      const said = fs.readFileSync(log, 'utf8').slice(-20000);
      fs.rmSync(home, { recursive: true, force: true });
      resolve({ status: late ? 'time' : code ?? signal, seconds: (Date.now() - begun) / 1000, said });
    });
  });
}

// Calls `work` for each entry, `atOnce` at a time.
async function sideBySide(entries, atOnce, work) {
  const waiting = [...entries];
  await Promise.all(Array.from({ length: atOnce }, async () => {
    while (waiting.length > 0) await work(waiting.shift());
  }));
}

module.exports = { runProgram, sideBySide };
