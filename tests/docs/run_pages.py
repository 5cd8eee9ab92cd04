#!/usr/bin/python3
"""Runs the commands of the manual's pages, and looks whether their links lead somewhere and they say for whom they are.

usage: run_pages.py SOURCE_FOLDER PROGRAM_FOLDER [PAGE...]

Indented lines that begin with `$ ` are commands; a line that ends with a backslash goes on in the next, and one with
<<END in the lines up to END. The commands of a page run one after the other in a copy of the samples, and each has to
end with exit code 0; one that opens a window has to keep it open. Lines below a command are its output: each has to come
in that order, blanks not compared; `...` stands for what is left out, lines or the rest of one.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

INDENT = '    '
# These open a window and wait for the user.
WINDOW = re.compile(r'talven( |$)|talven-view (?!--export|--pick|--help)')


def commands_of(page):
    """Pairs of a command and the lines shown below it, with the number of the command's line."""
    found = []
    is_open = goes_on = False
    for number, line in enumerate(page.read_text('utf-8').splitlines(), 1):
        text = line[len(INDENT):] if line.startswith(INDENT) else None
        if text is not None and text.startswith('$ '):
            found.append([number, text[2:], []])
            is_open = True
        elif text is None or not is_open:
            is_open = False
            continue
        elif goes_on:
            found[-1][1] += '\n' + text
        else:
            found[-1][2].append(text)
            continue
        is_text = re.search("<<'?END", found[-1][1]) and text != 'END'
        goes_on = is_text or text.endswith('\\')
    return found


def run(command, **settings):
    """A command's exit code and output. A window is closed after a while, and is right to have waited."""
    call = ['timeout', '1'] if WINDOW.match(command) else []
    done = subprocess.run([*call, 'sh', '-c', command], text=True, timeout=60, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **settings)
    return (0 if call and done.returncode == 124 else done.returncode or len(call)), done.stdout


def missing_line(shown, output):
    """The first shown line that the output lacks."""
    rest = iter([' '.join(line.split()) for line in output.splitlines()])
    for line in (line for line in shown if line.strip() != '...'):
        wanted = ' '.join(line.split())
        is_cut = wanted.endswith('...')
        wanted = wanted.removesuffix('...').rstrip()
        if not any(text == wanted or is_cut and text.startswith(wanted) for text in rest):
            return line
    return None


def anchors_of(page):
    """The names by which headings are linked to, as GitHub and pandoc make them."""
    heads = re.findall(r'^#+ (.*)$', page.read_text('utf-8'), re.MULTILINE)
    return {re.sub(r'[^\w\- ]', '', head.lower()).replace(' ', '-') for head in heads}


def dead_links(page):
    faults = []
    for target in re.findall(r'\]\(([^)\s]+)\)', page.read_text('utf-8')):
        name, _, anchor = target.partition('#')
        other = page.parent / name if name else page
        if ':' not in target and not (other.exists() and (not anchor or anchor in anchors_of(other))):
            faults.append('%s: the link %s leads nowhere' % (page.name, target))
    return faults


def first_sentence_fault(page):
    """Each page but README begins with for whom it is."""
    first = page.read_text('utf-8').split('\n\n')[1]
    return [] if page.name == 'README.md' or first.startswith('For ') else [page.name + ': for whom is it?']


def run_page(page, samples, environment):
    """The faults of a page, and how many commands it has."""
    faults = []
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch) / 'samples'
        shutil.copytree(samples, folder)
        environment = {**environment, 'XDG_DATA_HOME': scratch + '/data', 'XDG_STATE_HOME': scratch + '/state'}
        commands = commands_of(page)
        for number, command, shown in commands:
            code, output = run(command, cwd=folder, env=environment)
            where = '%s:%d: %s' % (page.name, number, command)
            missing = missing_line(shown, output)
            if code != 0:
                faults.append('%s\n  exit code %d\n%s' % (where, code, output))
            elif missing is not None:
                faults.append('%s\n  the output has no line\n%s\n%s' % (where, missing, output))
    return faults, len(commands)


def main():
    source, programs = pathlib.Path(sys.argv[1]), os.path.abspath(sys.argv[2])
    environment = {**os.environ, 'PATH': programs + os.pathsep + os.environ['PATH'], 'QT_QPA_PLATFORM': 'offscreen'}
    pages = [source / name for name in sys.argv[3:]] or sorted(source.glob('docs/*.md')) + [source / 'README.md']
    total, faults = 0, []
    for page in pages:
        found, count = run_page(page, source / 'samples', environment)
        total += count
        faults += found + dead_links(page) + first_sentence_fault(page)
    print('\n'.join(faults + ['%d commands of %d pages, %d faults' % (total, len(pages), len(faults))]))
    return 1 if faults or total == 0 else 0


if __name__ == '__main__':
    sys.exit(main())
