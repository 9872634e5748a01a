#!/usr/bin/env python3
"""Plants faults in a copy of the program and tells which of them no test notices.

    tests/mutation/mutation.py                        the faults of chosen.txt
    tests/mutation/mutation.py --blind SEED           some drawn from all that can be planted blindly
    tests/mutation/mutation.py --again                what survived the last runs

Every fault is compiled in at once, behind a switch that the environment sets (ARDANE_FAUTE). One run of the tests
without any tells which test comes by which place, so that a fault costs only the tests that can notice it. Blind
faults drop a statement or negate a condition. What the tests do under a fault they do as a user without rights, with
a bounded time, memory and number of processes, in a folder that is thrown away."""

import argparse
import collections
import concurrent.futures
import hashlib
import json
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import threading
import time

import faults

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
WORK = ROOT / 'build' / 'mutation'
TREE = WORK / 'tree'
BUILD = TREE / 'build'
RUNS = pathlib.Path('/dev/shm' if os.path.isdir('/dev/shm') else '/tmp')
MOST = 65536  # of switch.cpp
# Sources of other systems are not compiled here.
ELSEWHERE = re.compile(r'_(other|windows)\.cpp$')
TARGETS = ['unit_test', 'killed_test', 'pilote_test', 'contract_test', 'scenario_test', 'scenario_runner', 'help_test',
           'desktop_test', 'ardane', 'ardane-pilote']
# The modules that are loaded when first asked for have a switch of their own.
SWITCH = b'''
add_library(ardane_switch STATIC switch.cpp)
set_target_properties(ardane_switch PROPERTIES POSITION_INDEPENDENT_CODE ON)
target_link_libraries(ardane_platform PUBLIC ardane_switch)
'''
# Tests of what is not in src/, and one that compares the sources' own text.
OTHER_TESTS = r'^(packaging|armorial|content|country|drawing|files|marks|numbers|voices|atelier|House|whole_games)[.]'


def ident(fault):
    return fault.name or fault.key()


def in_qt(file):
    return file.startswith('src/front/qt/')


# The copy with its faults.


def write_if_new(path, text):
    if path.exists() and path.read_bytes() == text:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(text)


def plant(left_out):
    """Brings the copy up to date; returns its faults, each at its number, and the reasons of chosen.txt."""
    files = subprocess.run(['git', 'ls-files', '-co', '--exclude-standard'], cwd=ROOT, check=True, capture_output=True,
                           text=True).stdout.split('\n')[:-1]
    files = [f for f in files if (ROOT / f).is_file()]
    for kept in TREE.rglob('*') if TREE.exists() else []:
        name = str(kept.relative_to(TREE))
        if kept.is_file() and not name.startswith('build/') and name not in files and 'src/switch' not in name:
            kept.unlink()
    sources = {f: (ROOT / f).read_text('utf-8') for f in files
               if f.startswith('src/') and f.endswith(('.cpp', '.h')) and not ELSEWHERE.search(f)}
    chosen, reasons = faults.chosen(HERE / 'chosen.txt', sources.__getitem__)
    # Headers hold few statements: of these only what is chosen.
    every = [fault for f, text in sources.items() if f.endswith('.cpp') for fault in faults.blind(f, text)] + chosen
    by_file = collections.defaultdict(list)
    for number, fault in enumerate(every):
        if fault.key() not in left_out:
            by_file[fault.file].append((number, fault))
    for f in set(files) - {'src/CMakeLists.txt'}:
        text = faults.planted(sources[f], by_file[f]).encode() if f in by_file else (ROOT / f).read_bytes()
        write_if_new(TREE / f, text)
    write_if_new(TREE / 'src/switch.h', (HERE / 'switch.h').read_bytes())
    write_if_new(TREE / 'src/switch.cpp', (HERE / 'switch.cpp').read_bytes())
    write_if_new(TREE / 'src/CMakeLists.txt', (ROOT / 'src/CMakeLists.txt').read_bytes() + SWITCH)
    return every, reasons


def build(jobs):
    """Builds the copy; what a compiler refuses is planted wrongly and left out from then on."""
    memory = WORK / 'left_out.json'
    left_out = set(json.loads(memory.read_text())) if memory.exists() else set()
    while True:
        every, reasons = plant(left_out)
        if not (BUILD / 'build.ninja').exists():
            subprocess.run(['cmake', '--preset', 'release', '-B', BUILD, '-DARDANE_WERROR=OFF', '-DARDANE_ATELIER=OFF',
                            '-DCMAKE_CXX_FLAGS=-w', '-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG'], cwd=TREE, check=True,
                           stdout=subprocess.DEVNULL)
        made = subprocess.run(['ninja', '-C', BUILD, '-k0', f'-j{jobs}', *TARGETS], capture_output=True, text=True)
        if made.returncode == 0:
            return every, reasons, left_out
        wrong = set(re.findall(r'^(?:\S*/)?(src/\S+?):(\d+):\d+: (?:fatal )?error:', made.stdout, re.M))
        refused = {f.key() for f in every
                   for file, line in wrong if file == f.file and f.line <= int(line) <= f.last_line}
        if not refused:
            sys.exit(made.stdout[-4000:])
        print(f'{len(refused)} faults do not compile', flush=True)
        left_out |= refused
        memory.write_text(json.dumps(sorted(left_out), ensure_ascii=False, indent=1))


# Tests.


class Test:
    def __init__(self, data):
        properties = {p['name']: p['value'] for p in data.get('properties', [])}
        self.name = data['name']
        self.command = data['command']
        self.program = os.path.basename(self.command[0])
        self.environment = dict(e.split('=', 1) for e in properties.get('ENVIRONMENT', []))
        self.passes = properties.get('PASS_REGULAR_EXPRESSION')
        self.fails = properties.get('FAIL_REGULAR_EXPRESSION')
        # Those of one program share a run; what has an expression to meet is run alone.
        self.filter = None
        if not self.passes and not self.fails and len(self.command) > 1:
            match = re.fullmatch('--gtest_filter=(.*)', self.command[1])
            self.filter = match and match.group(1)
        self.seconds, self.reached = 0.0, b''


def tests_of_the_copy():
    listed = subprocess.run(['ctest', '--show-only=json-v1', '-LE', 'slow', '-E', OTHER_TESTS], cwd=BUILD, check=True,
                            capture_output=True, env={**os.environ, 'QT_QPA_PLATFORM': 'offscreen'}).stdout
    return [Test(t) for t in json.loads(listed)['tests'] if t.get('command')]


def own_path(suffix=''):
    """Of this thread's run; short, since some tests measure what a path takes on the screen."""
    return RUNS / f'a{os.getpid() % 4096:x}{threading.current_thread().name[-2:]}{suffix}'


class Run:
    """A command under a fault, in a folder of its own that goes with it."""

    def __init__(self, command, environment, limit, fault=None, reached=None):
        self.folder = own_path()
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()
        (self.folder / 'run').mkdir(mode=0o700)
        user = {}
        if os.getuid() == 0:
            user = dict(user=65534, group=65534, extra_groups=[])
            for path in [self.folder, *self.folder.iterdir()]:
                os.chown(path, 65534, 65534)
        self.mark = f'ARDANE_FAUTE_ESSAI={self.folder.name}-{time.monotonic_ns()}'
        where = {'TMPDIR': str(self.folder), 'HOME': str(self.folder / 'run'),
                 'XDG_RUNTIME_DIR': str(self.folder / 'run'), 'PATH': os.environ['PATH'], 'LANG': 'C.UTF-8',
                 **environment, **dict([self.mark.split('=')])}
        if fault is not None:
            where['ARDANE_FAUTE'] = str(fault)
        if reached is not None:
            where['ARDANE_FAUTES_ATTEINTES'] = str(reached)
        # The one test that is told where to leave its files is told another place.
        command = [str(self.folder / 'jeu') if before == '--demonstration' else word
                   for before, word in zip(['', *command], command)]
        output = open(self.folder / 'output', 'w+b')
        try:
            process = subprocess.Popen(command, env=where, cwd=self.folder, stdout=output, stderr=subprocess.STDOUT,
                                       stdin=subprocess.DEVNULL, start_new_session=True, preexec_fn=lambda: limits(limit),
                                       **user)
            self.code = self.wait(process, limit)
            output.seek(max(0, output.seek(0, 2) - 200000))
            self.output = output.read().decode('utf-8', 'replace')
        finally:
            self.end_what_is_left()
            output.close()
            shutil.rmtree(self.folder, ignore_errors=True)

    def wait(self, process, limit):
        """Its exit code, None where it took too long. Time in which it or this very program was stopped does not
        count; `seconds` is what it has cost the processor."""
        spent, pause, last = 0.0, 0.002, time.monotonic()
        while spent < limit:
            ended, status, usage = os.wait4(process.pid, os.WNOHANG)
            if ended:
                process.returncode = os.waitstatus_to_exitcode(status)
                self.seconds = usage.ru_utime + usage.ru_stime
                return process.returncode
            time.sleep(pause)
            pause = min(0.05, pause * 1.5)
            now = time.monotonic()
            try:
                stopped = open(f'/proc/{process.pid}/stat').read().rsplit(')', 1)[1].split()[0] == 'T'
            except OSError:
                stopped = False
            spent += 0 if stopped else min(now - last, 0.2)
            last = now
        self.seconds = limit
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()
        return None

    def end_what_is_left(self):
        for process in filter(str.isdigit, os.listdir('/proc')):
            try:
                if self.mark.encode() in open(f'/proc/{process}/environ', 'rb').read().split(b'\0'):
                    os.kill(int(process), signal.SIGKILL)
            except OSError:
                pass


def limits(seconds):
    for ending in (signal.SIGHUP, signal.SIGINT, signal.SIGQUIT):  # which a run in the background has ignored
        signal.signal(ending, signal.SIG_DFL)
    processor = int(seconds / 4) + 1  # a busy machine gives no more of a time on the wall
    resource.setrlimit(resource.RLIMIT_CPU, (processor, processor))
    resource.setrlimit(resource.RLIMIT_FSIZE, (5 * 10**9, 5 * 10**9))
    resource.setrlimit(resource.RLIMIT_AS, (6 << 30, 6 << 30))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    if os.getuid() != 0:
        resource.setrlimit(resource.RLIMIT_NPROC, (400, 400))


def passed(test, run):
    if run.code is None:
        return False
    if test.passes or test.fails:
        return (any(re.search(p, run.output) for p in test.passes or ['']) and
                not any(re.search(p, run.output) for p in test.fails or []))
    return run.code == 0


def remembered(every):
    """What earlier runs have learned, in today's numbers of the faults."""
    path = WORK / 'reached.json'
    if not path.exists():
        return {}, set()
    stored = json.loads(path.read_text())
    number = {ident(f): n for n, f in enumerate(every)}
    today = [number.get(name) for name in stored['faults']]
    for known in stored['tests'].values():
        known['reached'] = [today[n] for n in known['reached'] if today[n] is not None]
    return stored['tests'], set(number.values()) - set(today)


def learn(tests, every, asked):
    """Which test comes by which fault, and how long it takes. Kept as long as its program is the same; or, with
    --keep, as long as there is a test of that name: then a new fault may be reached by all that reach its file."""
    known, new_faults = remembered(every)
    digests = {}

    def digest(test):
        program = test.command[0]
        if program not in digests:
            digests[program] = hashlib.sha256(pathlib.Path(program).read_bytes()).hexdigest()
        return digests[program] + ' '.join(test.command[1:])

    def ask(test):
        file = own_path('.reached')
        file.write_bytes(bytes(MOST))
        file.chmod(0o666)
        run = Run(test.command, test.environment, 10 * asked.slow, reached=file)
        known[test.name] = {'digest': digest(test), 'passed': passed(test, run), 'seconds': run.seconds,
                            'reached': [n for n, byte in enumerate(file.read_bytes()[:len(every)]) if byte]}
        file.unlink()

    def is_known(test):
        return test.name in known and (asked.keep or known[test.name]['digest'] == digest(test))

    new = [t for t in tests if not is_known(t)]
    if new:
        print(f'{len(new)} tests without a fault', flush=True)
    with concurrent.futures.ThreadPoolExecutor(asked.jobs) as pool:
        list(pool.map(ask, new))
    if not asked.keep or not new_faults:
        (WORK / 'reached.json').write_text(json.dumps(
            {'faults': [ident(f) for f in every], 'tests': {t.name: known[t.name] for t in tests}}))
    sound = []
    for test in tests:
        found = known[test.name]
        files = {every[n].file for n in found['reached']}
        test.seconds = found['seconds']
        test.reached = frozenset(found['reached']) | {n for n in new_faults if every[n].file in files}
        if found['passed']:
            sound.append(test)
        elif test.seconds < asked.slow:
            print(f'Left out, for it fails without a fault: {test.name}')
    return sound


# A fault's trial.


def runs_of(tests, neighbours):
    """Runs of some of the tests, those first that are soonest over and come by little else than what stands in the
    same file."""
    budget, chunk, chunks = 0.5, [], []
    for test in sorted(tests, key=lambda t: (t.seconds + 0.005) * len(t.reached) / len(t.reached & neighbours)):
        if chunk and sum(t.seconds for t in chunk) + test.seconds > budget:
            chunks.append(chunk)
            chunk, budget = [], budget * 3
        chunk.append(test)
    for chunk in [*chunks, chunk]:
        shared = collections.defaultdict(list)
        for test in chunk:
            alone = test.name if test.filter is None else None
            shared[test.command[0], json.dumps(test.environment), alone].append(test)
        yield from shared.values()


def noticed_by(number, tests, neighbours):
    """The test that notices a fault, or None; `neighbours` are the faults of its file."""
    for some in runs_of([t for t in tests if number in t.reached], neighbours):
        first = some[0]
        limit = 20 + 20 * sum(t.seconds for t in some)
        if first.filter is None:
            run = Run(first.command, first.environment, limit, number)
            if not passed(first, run):
                return first.name
            continue
        flags = own_path('.flags')
        flags.write_text('--gtest_filter=' + ':'.join(t.filter for t in some) + '\n--gtest_fail_fast\n')
        flags.chmod(0o644)
        run = Run([first.command[0], f'--gtest_flagfile={flags}'], first.environment, limit, number)
        flags.unlink()
        if run.code != 0:
            failed = re.findall(r'\[  FAILED  \] (\S+)', run.output) or re.findall(r'\[ RUN      \] (\S+)', run.output)[-1:]
            how = 'too long: ' if run.code is None else ''
            return how + (failed[0] if failed else first.program)
    return None


def listed_reasons():
    """Why a blind fault changes nothing that a player or a file could show: see the head of equivalent.txt."""
    reasons = {}
    for line in (HERE / 'equivalent.txt').read_text('utf-8').splitlines():
        if line.strip() and not line.startswith('#'):
            key, reason = line.split(' || ')
            reasons[key] = reason
    return reasons


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('--blind', type=int, metavar='SEED')
    parser.add_argument('--again', action='store_true', help='only what survived the last time and has no reason to')
    parser.add_argument('--count', type=int, default=200)
    parser.add_argument('--where', choices=['all', 'qt', 'rest'], default='all')
    parser.add_argument('--file', default='', help='only faults of files with that in their names')
    parser.add_argument('--jobs', type=int, default=2)
    parser.add_argument('--keep', action='store_true', help='what is known of tests and faults by name, trust it')
    parser.add_argument('--slow', type=float, default=4, metavar='SECONDS', help='tests that take longer are left out')
    parser.add_argument('--minutes', type=float, default=600)
    asked = parser.parse_args()
    os.nice(10)
    WORK.mkdir(parents=True, exist_ok=True)

    every, chosen_reasons, left_out = build(asked.jobs)
    tests = [t for t in learn(tests_of_the_copy(), every, asked) if t.seconds <= asked.slow]
    memory = WORK / 'results.json'
    results = json.loads(memory.read_text()) if memory.exists() else {}

    numbered = [(n, f) for n, f in enumerate(every)
                if f.key() not in left_out and asked.file in f.file and (asked.where == 'all' or in_qt(f.file) == (asked.where == 'qt'))]
    reasons = {**listed_reasons(), **chosen_reasons}
    if asked.again:
        drawn = [(n, f) for n, f in numbered if results.get(ident(f), '') is None and ident(f) not in reasons]
    elif asked.blind is None:
        drawn = [(n, f) for n, f in numbered if f.kind == 'chosen']
    else:
        drawn = [(n, f) for n, f in numbered if f.kind != 'chosen']
        drawn = random.Random(asked.blind).sample(drawn, min(asked.count, len(drawn)))

    neighbours = collections.defaultdict(set)
    for n, f in enumerate(every):
        neighbours[f.file].add(n)
    started, tried, survivors = time.monotonic(), [], []
    with concurrent.futures.ThreadPoolExecutor(asked.jobs) as pool:
        def trial(numbered_fault):
            if time.monotonic() - started > asked.minutes * 60:
                return
            number, fault = numbered_fault
            by = noticed_by(number, tests, neighbours[fault.file])
            results[ident(fault)] = by
            tried.append(fault)
            if len(tried) % 20 == 0:
                print(f'... {len(tried)} of {len(drawn)}, {len(survivors)} of them survive', flush=True)
            if by is None:
                survivors.append((number, fault))
                reason = reasons.get(ident(fault))
                reach = sum(number in t.reached for t in tests)
                print(f'{fault.file}:{fault.line}  {fault.kind}  {fault.name or fault.text}  '
                      f'[{number}; {reach} tests come by]' + (f'\n    changes nothing: {reason}' if reason else ''),
                      flush=True)
        list(pool.map(trial, drawn))
    learned = json.loads(memory.read_text()) if memory.exists() else {}  # from another run meanwhile
    learned |= {ident(f): results[ident(f)] for f in tried}
    memory.write_text(json.dumps(learned, ensure_ascii=False, indent=1))
    for name, wanted in (('outside the Qt front end', False), ('in the Qt front end', True)):
        here = [f for f in tried if in_qt(f.file) == wanted]
        left = [f for _, f in survivors if in_qt(f.file) == wanted]
        excused = sum(ident(f) in reasons for f in left)
        if here:
            print(f'{name}: {len(here)} faults, {len(here) - len(left)} noticed '
                  f'({100 * (len(here) - len(left)) / len(here):.1f} %), {excused} change nothing, '
                  f'{len(left) - excused} survive')
    print(f'{time.monotonic() - started:.0f} s')


if __name__ == '__main__':
    main()
