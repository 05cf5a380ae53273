#!/usr/bin/env python3
"""Marks every class, struct and free function declared in the library's
headers with UIKIT_API, which exports it from libUIKit.so (built with hidden
visibility). Run from the repository root after adding a header:

    python3 cmake/export_sweep.py           rewrites the headers
    python3 cmake/export_sweep.py --check   lists what lacks the macro, exit 1

A second run changes nothing. ctest runs the check, so a forgotten macro
fails the tests instead of a plug-in's link."""
import sys
check = '--check' in sys.argv[1:]
missing = []
import pathlib, re
cls = re.compile(r'^(class|struct) (?!UIKIT_API\b)(?=\w+\s*(final\b\s*)?(:|\{|$))', re.M)
fn = re.compile(r'^(?!(inline|static|template|typedef|using|return|friend|extern|namespace|class|struct|enum|union|constexpr|UIKIT_API)\b)(?=[A-Za-z_][\w<>,\*&: ]*[\w>\*&](\s*[\*&]\s*| +)(\w+|operator\W+)\()(?![^(\n]*::\w+\()(?!.*\{ *$)', re.M)
for h in sorted(pathlib.Path('UI/toolkit').rglob('*.h')):
    s = h.read_text()
    lines = s.split('\n')
    out = []
    for i, l in enumerate(lines):
        prev = lines[i - 1] if i else ''
        if 'UIKIT_API' not in l and not prev.startswith('template') and not prev.rstrip().endswith(','):
            l = cls.sub(r'\1 UIKIT_API ', l)
            l = fn.sub('UIKIT_API ', l)
        out.append(l)
    t = '\n'.join(out)
    if t != s and '"module/Export.h"' not in t and h.name != 'Export.h':
        t = t.replace('#pragma once\n', '#pragma once\n#include "module/Export.h"\n', 1)
    if t != s:
        missing.append(str(h))
        if not check:
            h.write_text(t)
if check and missing:
    print('UIKIT_API missing in: ' + ', '.join(missing))
    sys.exit(1)
