#!/usr/bin/python3
"""Looks whether every message that the programs can give stands in the manual, with its cause and cure.

usage: check_messages.py SOURCE_FOLDER [--list]

A message is what stands in quotes in a call that fails, warns, refuses or shows a box, and in a constant that such a
call names. What stands between two values counts as a piece of its own. Each piece has to be in docs/messages.md;
pieces of one word are not looked for. --list prints them all, with the file of each.
"""
import pathlib
import re
import sys

CALLS = re.compile(r'\b(?:\w*Fail\w*|FatalIoError|CommandLineError|ViewOptionsError|RefusedAnswer|\w*invalid_argument|'
                   r'\w*runtime_error|Require\w+|ParseReals|number|read|\w*ShowMessage|WMessageBox|Refuse\w*|Hint|'
                   r'Notice\w*|EndWith\w+|Remark|setPlainText|ShowRemark|TellOfProgram|notices?_?\.(?:push_back|emplace_back)|Counted|'
                   r'refusals_\.Add)\s*[({]')
SENTENCES = re.compile(r'\b(?:text|notice|message|wanted)\s*(?:\+=|=)[^;]*;|\btext\.append[^;]*;|'
                       r'\bfailure = [^;]*;|\bmessages << [^;]*;|\bfputs\([^;]*;|\breturn (?:std::string\(|\"[A-Z0-9])[^;]*;|'
                       r'\bSimulationSource k\w+\{[^;]*;')
CONSTANT = re.compile(r'\b(k[A-Z]\w+)(?:\[\])?\s*=\s*((?:"(?:[^"\\]|\\.)*"\s*)+);')
LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
# What these files show is no message: help, tables, texts that are written into files.
OTHER = {'ComparisonLog.cpp', 'FormCatalogue.cpp', 'PlotHelp.cpp', 'PlotText.cpp', 'FieldHelp.cpp'}
HELP = re.compile(r'(?i)usage: |--version|--help|\[help|html/|^Calculates|^Powder diff|^goes to|DRIVE:|JOB name|fills a field, as|Comparing patterns')


def without_comments(text):
    return re.sub(r'(?m)^\s*//.*$|//[^"\n]*$', '', text)


def call_at(text, start):
    """The arguments of the call whose bracket ends before `start`."""
    depth, at = 1, start
    while depth and at < len(text):
        literal = LITERAL.match(text, at)
        if literal:
            at = literal.end()
            continue
        depth += {'(': 1, '{': 1, ')': -1, '}': -1}.get(text[at], 0)
        at += 1
    return text[start:at]


def constants_of(sources):
    return {name: value for text in sources.values() for name, value in CONSTANT.findall(text)}


def pieces_of(code, constants):
    """The quoted texts of a stretch of code and of the constants in it; texts beside each other are one."""
    for name in set(re.findall(r'\bk[A-Z]\w+', code)) & constants.keys():
        code += ' , ' + constants[name]
    for literal in LITERAL.findall(re.sub(r'"\s*"', '', code)):
        for piece in re.split(r'\\[nr]|%\d', literal):
            yield piece


def normal(text):
    text = re.sub(r'\\"', '"', text)
    text = re.sub(r'[`\s]+', ' ', text)
    return text.strip(' ,.:;()[]|\'"')


def messages(source):
    sources = {path: without_comments(path.read_text('utf-8')) for path in sorted((source / 'src').rglob('*'))
               if path.suffix in ('.cpp', '.h') and path.name not in OTHER}
    constants = constants_of(sources)
    for path, text in sources.items():
        stretches = [call_at(text, found.end()) for found in CALLS.finditer(text)]
        stretches += [found.group() for found in SENTENCES.finditer(text)]
        for piece in sorted({normal(piece) for code in stretches for piece in pieces_of(code, constants)}):
            if ' ' in piece and not HELP.search(piece) and len(re.sub('[^A-Za-z]', '', piece)) > 4:
                yield path.relative_to(source), piece


def main():
    source = pathlib.Path(sys.argv[1])
    page = normal((source / 'docs/messages.md').read_text('utf-8')) if '--list' not in sys.argv else ''
    page = page.replace('\\|', '|')
    found = list(messages(source))
    missing = ['%s: %s' % (path, piece) for path, piece in found if piece not in page]
    print('\n'.join(missing))
    print('%d pieces of messages, %d not in the page' % (len(found), len(missing)))
    return 1 if missing or len(found) < 200 else 0


if __name__ == '__main__':
    sys.exit(main())
