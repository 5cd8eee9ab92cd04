"""CPU time, memory and instructions of whole runs of the terminal program, beside its floor."""
import os
import pathlib
import re
import statistics
import subprocess
import tempfile
import time
from typing import Callable, NamedTuple

ROOT = pathlib.Path(__file__).resolve().parents[2]
BIN = ROOT / 'build/release/bin'
CONSOLE = BIN / 'talven-console'
FCALC = BIN / 'talven-fcalc'
SECONDS = 4
FEWEST_ROUNDS = 9
MOST_MEMORY = 24


class Run(NamedTuple):
    name: str
    answers: str
    inputs: Callable[[], dict]  # the text of each input file by its name
    outputs: list
    limit: float = 4
    program: pathlib.Path = CONSOLE


def build():
    """The release preset's terminal program, and what measures it."""
    for command in (['--preset', 'release', '-G', 'Ninja'],
                    ['--build', '--preset', 'release', '--target', 'talven-console', 'talven-fcalc', 'bench_floor', 'bench_usage']):
        subprocess.run(['cmake', *command], cwd=ROOT, stdout=subprocess.DEVNULL, check=True)


def prepare(cwd):
    """A data home whose directory file names the working directory, and nothing to start on exit but true."""
    exe = cwd / 'home/talven/drives/c/exe'
    (exe / 'VELDOR').mkdir(parents=True)
    (exe / 'VELDOR/DIR.DEF').write_text(str(cwd) + '\n')
    for name in ('mirade.exe', 'kestra.exe'):
        (exe / name).symlink_to('/bin/true')


def run_once(command, cwd, answers=os.devnull, env=None):
    """User and system seconds, and the largest resident size in MiB."""
    # Messages go to a file: whoever empties a pipe takes time from the program.
    with open(answers, 'rb') as stdin, tempfile.TemporaryFile() as messages:
        subprocess.run([str(c) for c in (BIN / 'bench_usage', *command)], cwd=cwd, stdin=stdin,
                       stdout=subprocess.DEVNULL, stderr=messages, env=env, check=True)
        messages.seek(0)
        figures = messages.read().decode('latin-1').split('\n')[-2]
    _, seconds, kib = figures.split()
    return float(seconds), int(kib) / 1024


def measure(cwd, answers, inputs, outputs, program):
    """Median CPU seconds of program and floor, run in turn, and the program's largest resident size in MiB."""
    env = dict(os.environ, XDG_DATA_HOME=str(cwd / 'home'))
    command = [program, 'BENCH', 'C:']
    run_once(command, cwd, answers, env)
    floor = [BIN / 'bench_floor', *inputs, '--']
    for output in outputs:
        floor += [(cwd / output).stat().st_size, 'floor-' + output]
    ours, floors = [], []
    end = time.monotonic() + SECONDS
    while len(ours) < FEWEST_ROUNDS or time.monotonic() < end:
        ours.append(run_once(command, cwd, answers, env))
        floors.append(run_once(floor, cwd)[0])
    return statistics.median(seconds for seconds, _ in ours), statistics.median(floors), max(size for _, size in ours)


def count_instructions(program, cwd):
    """Millions of instructions of one run, which are the same on every machine."""
    env = dict(os.environ, XDG_DATA_HOME=str(cwd / 'home'))
    with open(cwd / 'answers', 'rb') as stdin:
        run = subprocess.run(['valgrind', '--tool=callgrind', '--callgrind-out-file=/dev/null', str(program), 'BENCH', 'C:'],
                             cwd=cwd, stdin=stdin, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, env=env)
    return int(re.search(rb'Collected : (\d+)', run.stderr)[1]) / 1e6


def lay_out(run, cwd):
    """Answers and input files of a run, with the data home; gives the inputs."""
    prepare(cwd)
    (cwd / 'answers').write_text(run.answers)
    inputs = run.inputs()
    for file, text in inputs.items():
        (cwd / file).write_text(text)
    return inputs


def compare_instructions(run, other):
    """Prints the instructions of a run and of the same with another program; true if they are at most 1 % more."""
    with tempfile.TemporaryDirectory() as name:
        cwd = pathlib.Path(name)
        lay_out(run, cwd)
        count_instructions(CONSOLE, cwd)  # Whichever comes first has to look for outputs that are not there yet.
        ours, others = (count_instructions(program, cwd) for program in (CONSOLE, other))
    print('| %s | %.2f | %.2f | %.3f |' % (run.name, ours, others, ours / others), flush=True)
    return ours <= 1.01 * others


def compare(run):
    """Prints the row of a run; true if it keeps its marks."""
    with tempfile.TemporaryDirectory() as name:
        cwd = pathlib.Path(name)
        inputs = lay_out(run, cwd)
        ours, floor, resident = measure(cwd, cwd / 'answers', inputs, run.outputs, run.program)
        millions = count_instructions(run.program, cwd)
    memory = resident - max(map(len, inputs.values())) / 2**20
    print('| %s | %.1f | %g | %.1f | %.1f MiB |' % (run.name, ours / floor, run.limit, millions, memory), flush=True)
    return ours <= run.limit * floor and memory <= MOST_MEMORY
