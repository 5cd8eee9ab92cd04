"""CPU time and memory of a command beside its floor, for the end-to-end scripts of this folder."""
import os
import pathlib
import statistics
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
BIN = ROOT / 'build/release/bin'
CONSOLE = BIN / 'talven-console'
FLOOR = BIN / 'bench_floor'
USAGE = BIN / 'bench_usage'


def run_once(command, cwd, answers=None, env=None):
    """User and system seconds, and the largest resident size in MiB."""
    # Messages go to a file: whoever empties a pipe takes time from the program.
    with open(answers or os.devnull, 'rb') as stdin, tempfile.TemporaryFile() as messages:
        subprocess.run([str(c) for c in (USAGE, *command)], cwd=cwd, stdin=stdin, stdout=subprocess.DEVNULL,
                       stderr=messages, env=env, check=True)
        messages.seek(0)
        figures = messages.read().decode('latin-1').split('\n')[-2]
    _, seconds, kib = figures.split()
    return float(seconds), int(kib) / 1024


def compare(name, cwd, answers, inputs, outputs, limit, arguments=('BENCH', 'C:'), rounds=21):
    """Runs the console program and the floor in turn and prints the ratio of their median CPU times."""
    env = dict(os.environ, XDG_DATA_HOME=str(cwd / 'home'))
    command = [CONSOLE, *arguments]
    run_once(command, cwd, answers, env)
    floor = [FLOOR, *inputs, '--']
    for output in outputs:
        floor += [(cwd / output).stat().st_size, 'floor-' + output]
    ours, floors, memory = [], [], 0.0
    for _ in range(rounds):
        seconds, size = run_once(command, cwd, answers, env)
        ours.append(seconds)
        memory = max(memory, size)
        floors.append(run_once(floor, cwd)[0])
    ratio = statistics.median(ours) / statistics.median(floors)
    print('| %s | %.1f | %g | %.1f MiB |' % (name, ratio, limit, memory), flush=True)
    return ratio <= limit


def prepare(cwd):
    """A data home whose directory file names the working directory, and nothing to start on exit but true."""
    exe = cwd / 'home/talven/drives/c/exe'
    (exe / 'VELDOR').mkdir(parents=True)
    (exe / 'VELDOR/DIR.DEF').write_text(str(cwd) + '\n')
    (exe / 'mirade.exe').symlink_to('/bin/true')
