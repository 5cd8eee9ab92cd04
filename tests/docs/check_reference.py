#!/usr/bin/python3
"""Looks whether every field of every form stands in the reference with its id, name, range and default, and every
option and column of talven-run and talven-view.

usage: check_reference.py SOURCE_FOLDER PROGRAM_FOLDER

The forms are those that talven-console shows: `  1014 STEP Size: 0.050 (0.001 to 5)`.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SESSIONS = {  # What shows which forms, and a job of the samples.
    (102, 103, 104): ('QUARTZ', ['1006=1', 'ok', 'ok', 'exit']),
    (105, 106): ('QUARTZ', ['1006=5', 'ok', '1015=on', 'ok', 'ok', 'exit']),
    (107,): ('VRAIL', ['1006=5', 'ok', 'ok']),
    (108,): ('QUARTZ', ['1015=on', 'ok', 'ok', 'cancel', 'no', 'exit']),
}
FIELD = re.compile(r'  (\d+) (.*?)(?:: ([^:]*?))?(?: \((.*? to .*?)\))?(?: chosen)?$')
COMPUTED = {'1013': 'that of the file', '1019': 'half of a', '1020': 'half of b', '1021': 'half of c'}


def shown_forms(programs, samples):
    """Text of each form, by its number."""
    forms = {}
    for job, answers in SESSIONS.values():
        with tempfile.TemporaryDirectory() as scratch:
            folder = shutil.copytree(samples, scratch + '/samples')
            ins = pathlib.Path(folder, 'VRAIL.INS')
            ins.write_text(ins.read_text().replace('ZERR', 'REM '))
            script = '\n'.join(['1005=' + job, 'ok', folder] + answers) + '\n'
            session = subprocess.run([programs + '/talven-console'], input=script, text=True, stderr=subprocess.PIPE,
                                     stdout=subprocess.DEVNULL, env={**os.environ, 'XDG_DATA_HOME': scratch})
            for number, text in re.findall(r'\[form (\d+)\]\n((?:  .*\n)*)', session.stderr):
                forms.setdefault(int(number), text)
    return forms


def fields_of(text):
    """Id, name, value and range of what can be filled in."""
    for line in text.splitlines():
        found = FIELD.match(line)
        if found and found[3] not in (None, 'chosen'):
            yield found.groups()


def fault_of(number, field, section):
    identifier, name, value, limits = field
    row = re.search(r'^\| %s \| (.*)$' % identifier, section, re.MULTILINE)
    if not row:
        return 'form %d: the field %s %s has no row' % (number, identifier, name)
    is_computed = identifier in COMPUTED and number in (104, 106)
    wanted = [COMPUTED[identifier] if is_computed else '| %s ' % value, limits or '']
    if '>>' not in name:
        wanted.append('' if number == 105 and identifier == '1006' else name.replace(' Cu 1.54', ''))
    missing = [text for text in wanted if text not in '| ' + row[1].replace('**', '')]
    return 'form %d: the row of %s lacks %s' % (number, identifier, missing) if missing else None


def words_of(program, *arguments):
    """The options in a help text, and the columns of its table."""
    text = subprocess.run([program, *arguments], text=True, stdout=subprocess.PIPE).stdout
    columns = re.search(r'^Columns of the table: (.*)', text, re.MULTILINE)
    return set(re.findall(r'(?<![\w-])--?[a-z0-9][\w-]*', text)), columns[1].split() if columns else []


def rows_of(page, heading, command):
    """Rows of the tables below a heading that are about a command, or about all."""
    section = re.search(r'^## %s\n.*?(?=^## |\Z)' % heading, page, re.MULTILINE | re.DOTALL)[0]
    rows = [row for row in section.splitlines() if row.startswith('| ')]
    return [row for row in rows if row.startswith('| `-') or command in row.split('|')[1].replace(',', '').split()]


def option_faults(page, programs):
    commands = re.findall(r'^  ([a-z]+)  ', subprocess.run([programs + '/talven-run', '--help'], text=True,
                                                          stdout=subprocess.PIPE).stdout, re.MULTILINE)
    faults = [] if len(commands) > 7 else ['talven-run lists few commands']
    for program, command in [('talven-run', each) for each in commands] + [('talven-view', '')]:
        options, columns = words_of(programs + '/' + program, *filter(None, [command]), '--help')
        rows = rows_of(page, program, command)
        wanted = ['`%s`' % option for option in options - {'-h', '--help', '--version', '-print0', '-pick'}]
        wanted += ['`%s`' % name for name in columns]
        faults += ['%s %s: %s has no row' % (program, command, word) for word in wanted
                   if not any(word in row for row in rows)]
    return faults


def main():
    source, programs = pathlib.Path(sys.argv[1]), os.path.abspath(sys.argv[2])
    page = (source / 'docs/reference.md').read_text('utf-8')
    forms = shown_forms(programs, source / 'samples')
    faults, count = [], 0
    for number in (number for numbers in SESSIONS for number in numbers):
        section = re.search(r'^### %d:.*?(?=^##)' % number, page, re.MULTILINE | re.DOTALL)
        if number not in forms or not section:
            faults.append('form %d is not shown, or has no section' % number)
            continue
        fields = list(fields_of(forms[number]))
        count += len(fields)
        faults += [fault for field in fields if (fault := fault_of(number, field, section[0]))]
    faults += option_faults(page, programs)
    print('\n'.join(faults + ['%d fields, %d faults' % (count, len(faults))]))
    return 1 if faults or count < 25 else 0


if __name__ == '__main__':
    sys.exit(main())
