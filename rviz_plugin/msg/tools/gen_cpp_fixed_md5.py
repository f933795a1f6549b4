#!/usr/bin/env python3
"""The C++ message generator, with the fixed message sums."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import fixed_md5  # noqa: E402
import genmsg.template_tools  # noqa: E402

if __name__ == '__main__':
    fixed_md5.install()
    genmsg.template_tools.generate_from_command_line_options(
        sys.argv, {'msg.h.template': '@NAME@.h'}, {'srv.h.template': '@NAME@.h'})
