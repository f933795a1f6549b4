#!/usr/bin/env python3
"""Prints where a build tree's last build spent its time, per library and test program.

Reads the Ninja log steps written since scripts/build.sh recorded the log's length. A step's time is
its own (compile, link, code generation); with two jobs the wall time is about half the sum.
"""
import collections
import os
import re
import sys

def owner(output):
    match = re.search(r'CMakeFiles/([^/]+)\.dir/', output) or re.search(r'([^/]+)_autogen/', output)
    if match:
        return match.group(1)
    name = os.path.basename(output)
    match = re.match(r'lib(.+)\.(a|so)$', name)
    if match:
        return match.group(1)
    if '/' not in output or output.startswith('devel/lib/rviz_plugin/'):
        return name
    return 'messages and generated code'

def main(build_dir, top):
    log = os.path.join(build_dir, '.ninja_log')
    start_file = os.path.join(build_dir, '.ninja_log_start')
    start = int(open(start_file).read().strip() or 0) if os.path.exists(start_file) else 0
    if not os.path.exists(log):
        return
    with open(log) as f:
        lines = f.read().splitlines()[max(start, 1):]
    seconds = collections.Counter()
    steps = set()
    for line in lines:
        fields = line.split('\t')
        if len(fields) < 5 or line.startswith('#'):
            continue
        # A step with several outputs has a line per output: count it once.
        step = (fields[0], fields[1], fields[4])
        if step in steps:
            continue
        steps.add(step)
        seconds[owner(fields[3])] += (int(fields[1]) - int(fields[0])) / 1000.0
    total = sum(seconds.values())
    if total == 0:
        print(f'  {os.path.basename(build_dir)}: nothing was built')
        return
    print(f'  {os.path.basename(build_dir)}: {total:.0f} s of build steps')
    shown = seconds.most_common(top)
    for name, value in shown:
        print(f'    {value:7.1f} s {100 * value / total:5.1f} %  {name}')
    rest = total - sum(value for _, value in shown)
    if rest > 0:
        print(f'    {rest:7.1f} s {100 * rest / total:5.1f} %  ({len(seconds) - len(shown)} others)')

if __name__ == '__main__':
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 12)
