"""What the programs that measure share: inputs, and the processor time of one run."""
import os
import subprocess
import sys

HERE = os.path.dirname(os.path.abspath(__file__))


class RunFailed(Exception):
    """A program that was to be measured ended with a fault; the text is its command."""


def write_input(path, kind, count, arguments=()):
    with open(path, 'wb') as out:
        subprocess.run([os.path.join(HERE, 'make_input'), kind, str(count), *arguments],
                       stdout=out, check=True)


def once(command):
    """Processor seconds and peak megabytes of one run; raises RunFailed."""
    pid = os.fork()
    if pid == 0:
        try:
            os.execv(command[0], command)
        finally:
            os._exit(127)  # or the child would measure on
    _, status, usage = os.wait4(pid, 0)
    if status:
        raise RunFailed(' '.join(command))
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def in_turn(commands, count):
    """The least time and the least memory of each, of so many runs of one after the other."""
    runs = [[once(command) for command in commands] for _ in range(count)]
    return [(min(seconds for seconds, _ in of_one), min(memory for _, memory in of_one))
            for of_one in zip(*runs)]


def each(rows, print_row):
    """Prints every row, those behind one that fails too; whether none failed."""
    ok = True
    for row in rows:
        try:
            print_row(row)
        except (RunFailed, subprocess.CalledProcessError) as failure:
            print(f'{row[0]}: failed: {failure}', file=sys.stderr, flush=True)
            ok = False
    return ok
