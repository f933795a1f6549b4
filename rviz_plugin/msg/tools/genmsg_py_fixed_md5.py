#!/usr/bin/env python3
"""The Python message generator, with the fixed message sums."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import fixed_md5  # noqa: E402
import genpy.generator  # noqa: E402
import genpy.genpy_main  # noqa: E402

if __name__ == '__main__':
    fixed_md5.install()
    genpy.genpy_main.genmain(sys.argv, 'genmsg_py.py', genpy.generator.MsgGenerator())
