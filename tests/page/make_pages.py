#!/usr/bin/env python3
"""Makes the pages that page_tests.py looks at, by the built program.

    make_pages.py ORR HOSTILE_GRAPH FOLDER

Of each engine the page of an example (treemap.html) and one with hostile texts everywhere
(hostile-treemap.html), and that of a finished drawing with an object in two pieces (pieces.html).
"""

import pathlib
import subprocess
import sys

PROJECT = pathlib.Path(__file__).resolve().parents[2]

# The examples that the README shows, and what it says of them.
EXAMPLES = {
    'treemap': ('own_source', 'Lines of code'),
    'sunburst': ('own_files', 'Sizes of files'),
    'flatbubble': ('own_source', 'Sizes of sources'),
    'bar': ('rightward', 'Lines of each module'),
    'matrix': ('own_includes', 'Includes between folders'),
    'umlseq': ('login', 'A login'),
    'gftree': ('lr_compact', 'Calls of one run'),
    'gfdecl': ('svg_devices', 'Devices and their base'),
}

PIECES = '''digraph { graph [xdotversion="1.2", bb="0,0,300,200"];
    twice [label="in two pieces", note="both", _draw_="c 7 -#000000 C 7 -#aaccee P 4 20 20 20 80 120 80 120 20 "];
    once [_draw_="c 7 -#000000 C 7 -#eeccaa P 4 20 120 20 180 120 180 120 120 "];
    twice [_draw_="c 7 -#000000 C 7 -#aaccee P 4 180 20 180 80 280 80 280 20 "]; }
'''


def make_page(orr, text, page, *options):
    subprocess.run([orr, 'page', *options, '-o', page], input=text, check=True)


def main():
    orr, hostile_graph, folder = sys.argv[1:]
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for engine, (example, title) in EXAMPLES.items():
        text = (PROJECT / f'examples/{engine}/{example}.dot').read_bytes()
        make_page(orr, text, folder / f'{engine}.html', '-K', engine, '--title', title)
        form = ['flat'] if engine == 'gftree' else []
        hostile = subprocess.run([hostile_graph, *form], check=True, capture_output=True).stdout
        make_page(orr, hostile, folder / f'hostile-{engine}.html', '-K', engine)
    make_page(orr, PIECES.encode(), folder / 'pieces.html')


if __name__ == '__main__':
    main()
