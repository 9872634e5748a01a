"""Finds where faults can be planted in C++ sources, and plants them all behind one switch.

The sources are read as tokens, not compiled: the house's format makes statements and conditions easy to tell, and
what is planted wrongly does not compile and is left out (mutation.py sees to that)."""

import dataclasses
import re

TOKEN = re.compile(r'[^\W\d]\w*|\d[\w.\']*|::|->|\+\+|--|&&|\|\||<<=|>>=|<=>|[-+*/%&|^=!<>]=|<<|"[^"]*"|\S')
DECLARATION = re.compile(
    r'(?:(?:static|const|constexpr|auto|thread_local|inline|mutable|unsigned|typename)\b'
    r'|(?!delete\b|new\b|co_)[^\W\d][\w:]*(?:<.*>)?(?:::\w+)*(?:\s+const)?\s+[*&]*(?:const\s+)?[^\W\d]\w*\s*(?:[=({;\[,:]|$))',
    re.S)
NOT_STATEMENTS = {'using', 'static_assert', 'typedef', 'goto', 'struct', 'class', 'enum', 'union', 'namespace', 'public',
                  'private', 'protected', 'template', 'asm', 'extern', 'friend'}
COMPARISONS = {'&&', '||', '==', '!=', '<=', '>='}


@dataclasses.dataclass(frozen=True)
class Fault:
    """One fault: `open` before and `close` behind what stands from `start` to `end`; `{n}` in them is its number."""
    file: str
    start: int
    end: int
    kind: str
    open: str
    close: str
    line: int
    last_line: int
    text: str
    name: str = ''

    def key(self):
        return f'{self.file} | {self.kind} | {self.text}'


def masked(source):
    """The source, as long as before, without comments, directives and what stands between quotes."""
    def blank(match):
        text = match.group(0)
        if match.group('string') is not None:
            return '"' + re.sub(r'[^\n]', '_', text[1:-1]) + '"'
        return re.sub(r'[^\n]', ' ', text)

    return re.sub(
        r'//[^\n]*|/\*.*?\*/|^[ \t]*#(?:[^\n]*\\\n)*[^\n]*'
        r'|(?P<string>R"(?P<d>[^(\n]*)\(.*?\)(?P=d)"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])+\')',
        blank, source, flags=re.S | re.M)


class Reader:
    def __init__(self, file, source):
        self.file, self.source = file, source
        self.masked = masked(source)
        self.tokens = [(m.group(0), m.start(), m.end()) for m in TOKEN.finditer(self.masked)]
        self.words = [t[0] for t in self.tokens]
        self.mates = self.pairs()
        self.blocks = self.find_blocks()
        self.faults = {}

    def pairs(self):
        mates, open_ones = {}, []
        for i, word in enumerate(self.words):
            if word in '([{' and len(word) == 1:
                open_ones.append(i)
            elif word in ')]}' and len(word) == 1:
                j = open_ones.pop()
                mates[i], mates[j] = j, i
        return mates

    def find_blocks(self):
        """Those braces that hold statements."""
        kinds, stack = {}, []
        for i, word in enumerate(self.words):
            if word == '{':
                kinds[i] = self.kind_of(i, kinds[stack[-1]] if stack else 'outside')
                stack.append(i)
            elif word == '}':
                stack.pop()
        return [i for i, kind in kinds.items() if kind == 'block']

    def kind_of(self, i, parent):
        before = self.words[i - 1] if i > 0 else ';'
        head = self.head(i)
        if 'namespace' in head or head[:1] == ['extern']:
            return 'outside'
        if before != ')' and any(w in head[:4] for w in ('struct', 'class', 'union', 'enum')):
            return 'outside' if 'enum' not in head[:2] else 'list'
        if before in (')', 'else', 'do', 'try', 'const', 'override', 'noexcept', 'mutable', 'final', ']'):
            return 'block'
        if before in (';', '{'):
            return 'block' if parent == 'block' else 'list'
        if before == ':':
            return 'block' if head[:1] in (['case'], ['default']) else 'list'
        if before == '}':
            return 'list' if parent == 'list' else 'block'
        j = i - 1  # ") -> Type {"
        while j > 0 and (self.words[j] in ('::', '<', '>', '*', '&', ',', 'const') or self.words[j].isidentifier()):
            j -= 1
        return 'block' if self.words[j] == '->' and self.words[j - 1] in (')', 'const', 'mutable') else 'list'

    def head(self, i):
        """What stands before a brace, back to the last statement."""
        words = []
        j = i - 1
        while j >= 0 and self.words[j] not in (';', '{', '}', '(', ','):
            if self.words[j] in (')', ']'):
                j = self.mates[j]
            words.append(self.words[j])
            j -= 1
        return words[::-1]

    # What is found.

    def add(self, kind, start, end, opening, closing):
        if (kind, start, end) in self.faults:
            return
        text = ' '.join(self.source[start:end].split())
        line = self.source.count('\n', 0, start) + 1
        last = line + self.source.count('\n', start, end)
        self.faults[kind, start, end] = Fault(self.file, start, end, kind, opening, closing, line, last, text)

    def start(self, i):
        return self.tokens[i][1]

    def end(self, i):
        return self.tokens[i][2]

    def condition(self, first, last):
        """The condition from one token to another, without the declaration before it."""
        for i in range(first, last + 1):
            if self.words[i] == ';' and self.level(first, i):
                first = i + 1
        if first > last:
            return
        text = self.masked[self.start(first):self.end(last)]
        if DECLARATION.match(text) and '=' in text:
            name = re.match(r'.*?([^\W\d]\w*)\s*=', text, re.S).group(1)
            return self.add('negate', self.start(first), self.end(last), '',
                            f'; static_cast<bool>({name}) != faute({{n}})')
        self.add('negate', self.start(first), self.end(last), '(static_cast<bool>(', ') != faute({n}))')

    def level(self, first, i):
        """Whether token i stands in no bracket that opens behind `first`."""
        j = first
        while j < i:
            if self.words[j] in ('(', '[', '{'):
                j = self.mates[j]
                if j >= i:
                    return False
            j += 1
        return True

    def drop(self, first, last):
        self.add('drop', self.start(first), self.end(last), '{{ if (!faute({n})) ', ' }}')

    def skip_to(self, i, word):
        while self.words[i] != word:
            i = self.mates[i] if self.words[i] in ('(', '[', '{') else i
            i += 1
        return i

    def statement(self, i, guarded=False):
        word = self.words[i]
        if word == '{':
            return self.mates[i] + 1
        if word == ';':
            return i + 1
        if word == 'if':
            constant = self.words[i + 1] == 'constexpr'
            i += 2 if constant else 1
            if not constant:
                self.condition(i + 1, self.mates[i] - 1)
            i = self.statement(self.mates[i] + 1, True)
            return self.statement(i + 1) if i < len(self.words) and self.words[i] == 'else' else i
        if word in ('while', 'switch', 'for', 'catch'):
            last = self.mates[i + 1] - 1
            if word == 'while':
                self.condition(i + 2, last)
            if word == 'for':
                parts = [j for j in range(i + 2, last + 1) if self.words[j] == ';' and self.level(i + 2, j)]
                if len(parts) == 2 and parts[0] + 1 < parts[1]:
                    self.condition(parts[0] + 1, parts[1] - 1)
            return self.statement(last + 2)
        if word == 'do':
            i = self.statement(i + 1)
            self.condition(i + 2, self.mates[i + 1] - 1)
            return self.mates[i + 1] + 2
        if word == 'try':
            return self.statement(i + 1)
        if word in ('case', 'default'):
            return self.skip_to(i, ':') + 1
        last = self.skip_to(i, ';')
        if word in ('return', 'throw', 'break', 'continue'):
            if guarded or last == i + 1 and self.words[i - 2:i] != ['default', ':']:
                self.drop(i, last)
            if word == 'return' and last > i + 1:
                self.returned(i + 1, last - 1)
        elif word not in NOT_STATEMENTS and not DECLARATION.match(self.masked[self.start(i):self.end(last)]):
            self.drop(i, last)
        return last + 1

    def returned(self, first, last):
        top = [i for i in range(first, last + 1) if self.level(first, i)]
        words = {self.words[i] for i in top}
        less = any(self.words[i] in '<>' and self.masked[self.start(i) - 1] == self.masked[self.end(i)] == ' ' for i in top)
        if '?' not in words and (COMPARISONS & words or self.words[first] == '!' or less):
            self.condition(first, last)

    def choice(self, i):
        """The condition of a `?`."""
        j = i - 1
        while self.words[j] not in ('(', '[', '{', ',', ';', '=', '+=', '-=', 'return', '?', ':'):
            j = self.mates[j] if self.words[j] in (')', ']', '}') else j
            j -= 1
        self.condition(j + 1, i - 1)

    def read(self):
        for block in self.blocks:
            i, end = block + 1, self.mates[block]
            while i < end:
                i = self.statement(i)
            for j in range(block, end):
                if self.words[j] == '?':
                    self.choice(j)
        return sorted(self.faults.values(), key=lambda f: (f.start, -f.end))


def blind(file, source):
    """Every statement that can be dropped and every condition that can be negated."""
    faults, seen = [], {}
    for fault in Reader(file, source).read():
        seen[fault.key()] = count = seen.get(fault.key(), 0) + 1
        faults.append(fault if count == 1 else dataclasses.replace(fault, text=f'{fault.text} #{count}'))
    return faults


def chosen(path, read):
    """The faults of a list: see the head of chosen.txt. `read` gives a source by its name."""
    faults, reasons = [], {}
    for paragraph in re.split(r'\n\s*\n', open(path, encoding='utf-8').read()):
        lines = [line for line in paragraph.splitlines() if line.strip() and not line.startswith('##')]
        if not lines:
            continue
        name, file, _, rank = lines[0].removeprefix('# '), *lines[1].partition(' #')
        part, sign = {'-': '', '+': '', '=': ''}, ''
        for line in lines[2:]:
            sign = line[0].strip() or sign
            part[sign] += line[2:] + '\n'
        source = read(file)
        places = list(re.finditer(r'\s+'.join(map(re.escape, part['-'].split())), source))
        if len(places) != 1 and not 0 < int(rank or 0) <= len(places):
            raise SystemExit(f'{path}: what "{name}" is about stands {len(places)} times in {file}')
        start, end = places[int(rank or 1) - 1].span()
        wrong = part['+'].strip().replace('{', '{{').replace('}', '}}')
        if part['-'].rstrip().endswith((';', '}')):
            opening, closing = f'{{{{ if (faute({{n}})) {{{{ {wrong} }}}} else {{{{ ', ' }} }}'
        else:
            opening, closing = f'(faute({{n}}) ? ({wrong}) : (', '))'
        line = source.count('\n', 0, start) + 1
        last = line + source.count('\n', start, end)
        text = ' '.join(part['-'].split())
        faults.append(Fault(file, start, end, 'chosen', opening, closing, line, last, text, name))
        if part['=']:
            reasons[name] = ' '.join(part['='].split())
    return faults, reasons


def planted(source, numbered):
    """The source with those faults in it, each with its number, on the lines where all stood before."""
    pieces = []
    for number, fault in numbered:
        length = fault.end - fault.start
        if fault.open:
            pieces.append((fault.start, 1, -length, fault.open.format(n=number)))
        pieces.append((fault.end, 0, length, fault.close.format(n=number)))
    out, at = ['#include "switch.h"\n#line 1\n'], 0
    for place, _, _, text in sorted(pieces, key=lambda p: p[:3]):
        out += [source[at:place], text.replace('\n', ' ')]
        at = place
    return ''.join(out) + source[at:]
