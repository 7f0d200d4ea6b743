#!/usr/bin/env python3
"""Makes the pages that page_tests.py looks at, by the built program.

    make_pages.py ORR HOSTILE_GRAPH FOLDER

Of each engine the page of an example (treemap.html) and one with hostile texts everywhere
(hostile-treemap.html), that of a finished drawing with an object in two pieces (pieces.html), and what a dark
page has to look at: a finished drawing (lights.html), one with rich texts (rich.html), and heads of lifelines and
calls without a fill (heads.html, calls.html). Then one with many texts (many.html), one with defaults
(defaults.html), one with an activation that has no height (thin.html), one most of which is too small to be drawn (small.html) and one with 20,000 cells (large.html).
"""

import os
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

LIGHTS = '''digraph { graph [xdotversion="1.2", bb="0,0,300,300"];
    black [_draw_="c 7 -#000000 C 7 -#000000 P 4 20 220 20 280 120 280 120 220 ",
           _ldraw_="F 12 5 -Arial c 7 -#ffffff T 70 250 0 60 5 -black "];
    faint [_draw_="c 7 -#000000 C 9 -#0000004c P 4 150 220 150 280 280 280 280 220 ",
           _ldraw_="F 12 5 -Arial c 7 -#000000 T 215 250 0 60 5 -faint "];
    thin [_draw_="c 7 -#ffffff C 7 -#e6e6e6 P 4 20 190 20 198 120 198 120 190 ",
          _ldraw_="F 14 5 -Arial c 7 -#000000 T 70 190 0 60 4 -thin "];
    red [_ldraw_="F 12 5 -Arial c 7 -#ff0000 T 215 190 0 60 3 -red "];
    grey [_ldraw_="F 12 5 -Arial c 7 -#333333 T 215 170 0 60 4 -grey "];
    black -> thin [_draw_="c 7 -#0000ff L 2 20 150 280 150 "];
    thin -> red [_draw_="c 7 -#ff0000 L 2 20 130 280 130 "];
    red -> grey [_draw_="c 7 -#000000 L 2 20 110 280 110 "]; }
'''

HEADS = '''digraph { node [uml="object", row="0", fillcolor="none"];
    a [col="1", label="caller"]; b [col="2", label="callee"];
    first [uml="activation", row="1", col="1"]; second [uml="activation", row="9", col="2"];
    first -> second [uml="message", label="asks"]; }
'''

RICH = '''digraph { graph [xdotversion="1.2", bb="0,0,300,100"];
    fill [_draw_="c 7 -#000000 C 7 -#ffff00 P 4 10 10 10 90 140 90 140 10 ",
          _ldraw_="F 12 5 -Arial c 7 -#000000 T 40 60 0 60 11 -<b>over</b> "];
    page [_ldraw_="F 12 5 -Arial c 7 -#000000 T 200 60 0 100 61 -<b>bold</b> <font color='#800000'>red</font> <u>under</u>"];
    table [_ldraw_="F 12 5 -Arial c 7 -#000000 T 200 90 0 100 57 -<table bgcolor='#ffff00'><tr><td>cell</td></tr></table>"]; }
'''

THIN = 'digraph { a [uml="object", row="0", col="0"]; b [uml="activation", row="1", col="0"]; }'

# Most files of a group are too small to be drawn; of another one not even the group is.
SMALL = 'digraph { large [area="1000"]; subgraph cluster_s { graph [label="sources"]; main [area="900"];\n' + ''.join(
    f'speck{i} [area="0.0001", url="src/{i}.c"];\n' for i in range(300)) + (
    '} subgraph cluster_t { graph [label="tests"]; mote [area="0.0001"]; } }')

DEFAULTS = '''digraph { graph [owner="everybody", url="https://a.example/"]; node [kind="part"]; edge [kind="call"];
    subgraph cluster_c { graph [team="red team", file="c.c"]; node [level="two"]; subgraph cluster_d { graph [file="d.c"]; a [kind="whole"]; } b; }
    c; a -> b; }
'''

# The cells have room for their labels, in a drawing that is far larger than a window.
MANY = 'digraph { graph [width="9600", height="7200"];\n' + ''.join(
    f'n{i} [label="cell {i}", area="1", fillcolor="none"];\n' for i in range(2500)) + '}'

# As many as a page has to open and to move without delay.
LARGE = 'digraph { graph [width="6400", height="4800"];\n' + ''.join(
    f'n{i} [label="cell {i}", area="{1 + i % 7}"];\n' for i in range(20000)) + '}'

CALLS = 'digraph { node [fillcolor="none"]; a [label="caller"]; b [label="callee"]; a -> b [label="asks"]; }'


def make_page(orr, text, page, *options, **variables):
    subprocess.run([orr, 'page', *options, '-o', page], input=text, check=True, env=os.environ | variables)


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
    make_page(orr, LIGHTS.encode(), folder / 'lights.html')
    make_page(orr, HEADS.encode(), folder / 'heads.html', '-K', 'umlseq')
    make_page(orr, RICH.encode(), folder / 'rich.html', ORR_GVLAYOUT_USE_HTML='1')
    make_page(orr, THIN.encode(), folder / 'thin.html', '-K', 'umlseq')
    make_page(orr, DEFAULTS.encode(), folder / 'defaults.html', '-K', 'gfdecl')
    make_page(orr, SMALL.encode(), folder / 'small.html', '-K', 'treemap')
    make_page(orr, MANY.encode(), folder / 'many.html', '-K', 'treemap')
    make_page(orr, LARGE.encode(), folder / 'large.html', '-K', 'treemap')
    make_page(orr, CALLS.encode(), folder / 'calls.html', '-K', 'gftree')


if __name__ == '__main__':
    main()
