// The monitor under test: a copy of the program folder in a temporary place, the simulated UPS on
// its COM1 and the web console on a free port. Nothing of it reaches the machine's own shutdown.
import {spawn} from 'node:child_process';
import {
  chmodSync, cpSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import net from 'node:net';
import {tmpdir} from 'node:os';
import {join} from 'node:path';
import {setTimeout as sleep} from 'node:timers/promises';

const patience = 30_000;  // milliseconds

/** The first sign that `condition` gives; throws when none comes in time. */
export async function sight(what, condition) {
  for (const deadline = Date.now() + patience; Date.now() < deadline; await sleep(50)) {
    const sign = await condition();
    if (sign) return sign;
  }
  throw new Error(`no sight of ${what}`);
}

// The configuration file holds ports up to 32767, below those that a system hands out.
async function freePort() {
  return sight('a free port', () => new Promise(resolve => {
    const port = 20_000 + Math.floor(Math.random() * 12_000);
    const server = net.createServer().once('error', () => resolve(0));
    server.listen(port, '127.0.0.1', () => server.close(() => resolve(port)));
  }));
}

function writeConfig(file, port, {login, control, language}) {
  const lines = readFileSync(file, 'utf8').split('\n');
  Object.assign(lines, {0: 'F', 1: '1', 5: port, 6: 'T', 7: login, 8: control, 10: language});
  writeFileSync(file, lines.join('\n'));
}

export class Monitor {
  /** `settings`: login, control (passwords), language (0 to 2). */
  static async start(programFolder, simulator, settings) {
    const monitor = new Monitor();
    monitor.folder = mkdtempSync(join(tmpdir(), 'varek-browser-'));
    monitor.port = await freePort();
    monitor.address = `http://127.0.0.1:${monitor.port}`;
    const at = name => join(monitor.folder, name);
    cpSync(programFolder, at('Varek'), {recursive: true});
    writeConfig(at('Varek/config.qmz'), monitor.port, settings);
    for (const name of ['dev', 'root', 'run']) mkdirSync(at(name));
    chmodSync(at('run'), 0o700);
    const {DISPLAY, WAYLAND_DISPLAY, JOURNAL_STREAM, ...kept} = process.env;
    const env = {...kept, LC_ALL: 'C.UTF-8', QT_QPA_PLATFORM: 'offscreen',
      VAREK_SHUTDOWN_COMMAND: 'true', VAREK_COM_DIR: at('dev'), VAREK_ROOT: at('root'),
      XDG_RUNTIME_DIR: at('run'), ASAN_OPTIONS: 'detect_leaks=0'};
    const run = (program, ...args) =>
      spawn(program, args, {env, cwd: monitor.folder, stdio: 'ignore'});
    monitor.processes = [run(
      simulator, '--link', at('dev/com1'), '--control', at('control'), '--log', at('log'))];
    await sight('the simulated UPS', () => monitor.order('state').catch(() => ''));
    monitor.processes.push(run(at('Varek/Varek')));
    await sight('the web console', () => fetch(monitor.address + '/').catch(() => false));
    return monitor;
  }

  /** One line of control for the simulated UPS; resolves to its answer. */
  order(command) {
    return new Promise((resolve, reject) => {
      const socket = net.connect(join(this.folder, 'control'), () => socket.write(command + '\n'));
      socket.once('data', data => { socket.destroy(); resolve(data.toString()); });
      socket.once('error', reject);
    });
  }

  /** The commands that reached the UPS, without its questions. */
  commands() {
    const lines = readFileSync(join(this.folder, 'log'), 'utf8').split('\n');
    return lines.map(line => line.slice(24)).filter(line => !['', 'Q1', 'F', 'I'].includes(line));
  }

  async stop() {
    for (const process of this.processes.reverse()) {
      const ended = new Promise(resolve => process.once('exit', resolve));
      if (process.exitCode === null && process.kill('SIGTERM')) await ended;
    }
    rmSync(this.folder, {recursive: true, force: true});
  }
}
