#!/usr/bin/env python3
"""Looks at pages in a real browser.

    page_tests.py FOLDER [--axe axe.min.js] [--pictures FOLDER] [unittest's own arguments]

FOLDER has the pages that make_pages.py makes. What can't be had is passed over: without a browser the status is
77, without axe-core there is no audit. With CI=true either is a failure.
"""

import argparse
import functools
import json
import os
import pathlib
import re
import sys
import tempfile
import unittest
import urllib.parse

from browser import Browser, KEPT_PICTURES, MOST_UNLIKE, missing_programs
from packed import all_attributes, own_attributes, unpacked

ENGINES = ['treemap', 'sunburst', 'flatbubble', 'bar', 'matrix', 'umlseq', 'gftree', 'gfdecl']
CHARTS = ENGINES[:4]
# The nodes, edges and groups that are drawn of each example: those of its text but for what is too small to be
# drawn, or said to be invisible.
OBJECTS = {
    'treemap': (332, 0, 35),
    'sunburst': (209, 0, 35),
    'flatbubble': (142, 0, 9),
    'bar': (27, 0, 9),
    'matrix': (16, 27, 2),
    'umlseq': (25, 24, 9),
    'gftree': (63, 62, 0),
    'gfdecl': (38, 5, 15),
}
# How many more are listed and found: what is too small, and edges that others stand for.
UNDRAWN = {'treemap': 7, 'sunburst': 47, 'umlseq': 6}
# A query in each, and how many objects it finds.
QUERIES = {
    'treemap': ('replay', 8),
    'sunburst': ('kB', 6),
    'flatbubble': ('circle', 2),
    'bar': ('layout', 3),
    'matrix': ('driver', 2),
    'umlseq': ('password', 3),
    'gftree': ('read', 5),
    'gfdecl': ('draw', 9),
}
# The keys that lead to the object of each picture, or its key in the address.
CHOSEN_IN_PICTURE = {
    'treemap': ['n', 'n', 'i', 'n', 'i', 'Enter'],
    'sunburst': ['n', 'i', 'n', 'i', 'Enter'],
    'flatbubble': ['n', 'i', 'Enter'],
    'bar': ['n', 'i', 'Enter'],
    'matrix': ['n', 'n', 'n', 'n', 'Enter'],
    'umlseq': ['n', 'n', 'Enter'],
    'gftree': '-.node.f31',
    'gfdecl': ['n', 'i', 'i', 'Enter'],
}
IN_CI = os.environ.get('CI') == 'true'
NOT_HERE = 77  # the status of a test that is skipped
SETTINGS = argparse.Namespace(pages=None, axe=None, pictures=None)

# Reads the view as the page has it: the transformation of the paper.
VIEW = '''const m = new DOMMatrix(getComputedStyle(document.getElementById('paper')).transform);
    const stage = document.getElementById('stage').getBoundingClientRect();
    return {scale: m.a, x: m.e + stage.left, y: m.f + stage.top, width: stage.width, height: stage.height};'''


class PageCase(unittest.TestCase):
    """Tests that share one browser."""

    @classmethod
    def setUpClass(cls):
        cls.browser = cls.enterClassContext(Browser())

    def setUp(self):
        self.browser.resize(1280, 800)
        self.browser.prefer(prefers_color_scheme='light', prefers_reduced_motion='reduce')

    def path(self, name):
        return pathlib.Path(SETTINGS.pages) / f'{name}.html'

    def open(self, name, fragment=''):
        path = self.path(name)
        self.name = name
        self.browser.open(path, fragment)
        self.text_of_page = path.read_text('utf-8')
        self.data = unpacked(json.loads(re.search(r'id="page-data">(.*?)</script>', self.text_of_page, re.S).group(1)))

    def frames(self):
        """Waits until what was asked for is on the screen."""
        self.browser.run('''return new Promise(done =>
            requestAnimationFrame(() => requestAnimationFrame(() => setTimeout(done, 30))));''')

    def view(self):
        self.frames()
        return self.browser.run(VIEW)

    def object(self, kind, wanted=lambda i: True):
        """The first object of a kind that is drawn and wanted."""
        kinds = self.browser.run(
            "return [...document.querySelectorAll('#drawing g[data-kind]')].map(g => g.dataset.kind);")
        for i, its in enumerate(kinds):
            if its == kind and self.data['box'][4 * i + 2] > 0 and wanted(i):
                return i
        self.fail(f'the page has no such {kind}')

    def in_legend(self, i):
        return self.data['legend'] >= 0 and self.data['legend'] in (i, self.data['parent'][i])

    def on_screen(self, i):
        """The middle of an object in the window."""
        x, y, width, height = self.data['box'][4 * i:4 * i + 4]
        view = self.view()
        return (view['x'] + (x + width / 2) * view['scale'], view['y'] + (y + height / 2) * view['scale'])

    def attributes(self, i):
        return all_attributes(self.data, i)

    def identity(self, i):
        return self.browser.run(
            "return document.querySelectorAll('#drawing g[data-kind]')[arguments[0]].dataset.id;", i)

    def point_at(self, i):
        self.browser.point(*self.on_screen(i))
        self.frames()

    def click(self, selector):
        self.browser.run('document.querySelector(arguments[0]).click();', selector)
        self.frames()

    def press(self, *keys):
        self.browser.press(*keys)
        self.frames()


def listed_of(engine):
    """How many objects the table of an engine's example has."""
    return sum(OBJECTS[engine]) + UNDRAWN.get(engine, 0)


def of_each_engine(test):
    """Runs a test on the page of each engine."""
    @functools.wraps(test)
    def run(self):
        for engine in ENGINES:
            with self.subTest(engine):
                self.open(engine)
                test(self, engine)
    return run


class EveryPage(PageCase):

    @of_each_engine
    def test_opens_with_an_empty_console(self, engine):
        self.frames()
        self.assertEqual(self.browser.console(), [])

    @of_each_engine
    def test_has_an_entry_for_each_object(self, engine):
        drawn = tuple(self.browser.objects(kind) for kind in ('node', 'edge', 'cluster'))
        self.assertEqual(drawn, OBJECTS[engine])
        self.assertEqual(len(self.data['parent']), listed_of(engine))
        self.assertEqual(len(self.data['box']), 4 * sum(OBJECTS[engine]))

    @of_each_engine
    def test_shows_the_whole_drawing_at_first(self, engine):
        view = self.view()
        left, top, right, bottom = self.browser.box('#stage')
        drawn = self.browser.box('#drawing')
        self.assertGreaterEqual(drawn[0], left)
        self.assertGreaterEqual(drawn[1], top)
        self.assertLessEqual(drawn[2], right + 0.5)
        self.assertLessEqual(drawn[3], bottom + 0.5)
        self.assertLessEqual(view['scale'], 1)

    @of_each_engine
    def test_wheel_zooms_to_the_pointer(self, engine):
        before = self.view()
        x, y = before['x'] + 100 * before['scale'], before['y'] + 60 * before['scale']
        self.browser.wheel(x, y, -200)
        after = self.view()
        self.assertGreater(after['scale'], before['scale'] * 1.1)
        for axis, place in (('x', round(x)), ('y', round(y))):
            at_first = (place - before[axis]) / before['scale']
            self.assertAlmostEqual((place - after[axis]) / after['scale'], at_first, delta=0.5)

    @of_each_engine
    def test_search_finds_and_marks(self, engine):
        query, count = QUERIES[engine]
        self.press('/')
        self.browser.type(query)
        self.assertTrue(self.browser.wait("return document.getElementById('count').textContent === arguments[0];",
                                          f'{count} found'), self.browser.text('#count'))
        self.assertGreaterEqual(self.browser.count('#marks .found .line'), count)
        self.press('Enter')
        self.assertEqual(self.browser.text('#count'), f'1 of {count}')
        self.assertIn(query, self.browser.text('#panel.held'))
        self.press('Escape')
        self.assertEqual(self.browser.count('#marks .found .line'), 0)

    @of_each_engine
    def test_keys_choose_zoom_and_list(self, engine):
        self.press('0')
        fitted = self.view()
        self.press('n', 'Enter')
        focused = self.browser.run('return document.activeElement.dataset.id;')
        self.assertIn(focused, self.browser.text('#panel.held'))
        self.assertGreater(self.browser.count('#marks .chosen .line'), 0)
        self.press('Escape', '+')
        self.assertEqual(self.browser.text('#panel.held'), '')
        self.assertAlmostEqual(self.view()['scale'] / fitted['scale'], 1.25, delta=0.01)
        self.press('0', 't')
        self.assertEqual(self.browser.count('#table tbody tr'), min(listed_of(engine), 200))
        self.press('t')
        self.assertEqual(self.view(), fitted)

    @of_each_engine
    def test_drawing_has_a_role_and_its_title_as_name(self, engine):
        title = self.browser.run('return document.title;')
        self.assertGreater(len(title), 3)
        self.assertEqual(self.browser.accessible('#drawing'), ('group', title))

    @of_each_engine
    def test_needs_nothing_else(self, engine):
        self.assertNotRegex(self.text_of_page, r'<(?:script|link|img|iframe|object|embed)[^>]*(?:src|href)="(?!#)')
        self.assertIn("default-src 'none'", self.text_of_page)
        loaded = self.browser.run("return performance.getEntriesByType('resource').map(e => e.name);")
        self.assertEqual(loaded, [])

    @of_each_engine
    def test_panel_shows_what_is_pointed_at(self, engine):
        i = self.browser.run('''const [view, boxes, filled] = arguments;
            const all = [...document.querySelectorAll('#drawing g[data-kind]')];
            return all.findIndex((one, i) => filled[i] && document.elementFromPoint(
                view.x + (boxes[4 * i] + boxes[4 * i + 2] / 2) * view.scale,
                view.y + (boxes[4 * i + 1] + boxes[4 * i + 3] / 2) * view.scale)?.closest('g[data-kind]') === one);''',
                             self.view(), self.data['box'], [bool(one) for one in own_attributes(self.data)])
        self.assertGreaterEqual(i, 0, 'nothing can be pointed at')
        self.point_at(i)
        panel = self.browser.panel()
        for name, value in self.attributes(i).items():
            self.assertIn(name, panel)
            self.assertIn(re.sub(r'[ \t]+', ' ', value).strip(), panel)

    @of_each_engine
    def test_axe_has_no_violation(self, engine):
        if not IN_CI and not pathlib.Path(SETTINGS.axe or 'none').exists():
            self.skipTest('there is no axe-core')
        for theme in ('light', 'dark'):
            self.browser.open(self.path(engine), f'#theme={theme}')
            self.frames()
            self.assertEqual(self.browser.audit(SETTINGS.axe), [], theme)
            self.press('n', 'Enter')
            self.assertEqual(self.browser.audit(SETTINGS.axe), [], f'{theme}, with an object held')
            self.press('z')
            self.press('/')
            self.browser.type(QUERIES[engine][0])
            self.assertTrue(self.browser.wait("return document.querySelector('#marks .found .line') !== null;"))
            self.assertEqual(self.browser.audit(SETTINGS.axe), [], f'{theme}, with what is found marked')
            self.click('#table-button')
            self.assertEqual(self.browser.audit(SETTINGS.axe), [], f'{theme}, with the table')
            self.click('#table-button')
            self.click('#help-button')
            self.assertEqual(self.browser.audit(SETTINGS.axe), [], f'{theme}, with the dialog of keys')
        if engine in CHARTS:
            self.audit_group_and_legend()

    def audit_group_and_legend(self):
        """With the trail of a group and the light of a legend, where there are such."""
        for theme in ('light', 'dark'):
            group = self.object('cluster', lambda i: not self.in_legend(i))
            self.browser.open(self.path(self.name), f'#theme={theme}&group={group}.cluster.{self.identity(group)}')
            self.frames()
            self.assertNotEqual(self.browser.text('#trail'), '')
            self.assertEqual(self.browser.audit(SETTINGS.axe), [], f'{theme}, in a group')
            if self.browser.count('#drawing [aria-pressed]') > 0:
                self.browser.run("document.querySelector('#drawing [aria-pressed]').focus();")
                self.press('Enter')
                self.assertEqual(self.browser.count('#drawing.dimmed'), 1)
                self.assertEqual(self.browser.audit(SETTINGS.axe), [], f'{theme}, with a colour lit')

    @of_each_engine
    def test_prints_on_one_page(self, engine):
        self.assertEqual(self.browser.pages_when_printed(), 1)

    @of_each_engine
    def test_parts_do_not_overlap(self, engine):
        for width, height in ((1280, 800), (390, 844)):
            self.browser.resize(width, height)
            self.press('n')
            bar, main, panel = map(self.browser.box, ('#bar', 'main', '#panel'))
            self.assertLessEqual(bar[3], main[1] + 0.5)
            self.assertTrue(panel[0] >= main[2] - 0.5 or panel[1] >= main[3] - 0.5, (width, main, panel))
            self.assertGreater((main[2] - main[0]) * (main[3] - main[1]), 0.4 * width * height)
            outside = self.browser.run('''return [...document.querySelectorAll('#bar button, #bar input')]
                .filter(one => { const box = one.getBoundingClientRect();
                    return box.left < 0 || box.right > innerWidth; }).map(one => one.id);''')
            self.assertEqual(outside, [])

    @of_each_engine
    def test_pictures(self, engine):
        if not SETTINGS.pictures:
            self.skipTest('no pictures were asked for')
        folder = pathlib.Path(SETTINGS.pictures)
        folder.mkdir(exist_ok=True)
        self.browser.resize(1080, 640)
        for theme in ('light', 'dark'):
            chosen = CHOSEN_IN_PICTURE[engine]
            if isinstance(chosen, str):
                self.browser.open(self.path(engine), f'#chosen={chosen}&theme={theme}')
            else:
                self.browser.open(self.path(engine), f'#theme={theme}')
                self.press(*chosen)
            self.frames()
            picture = folder / f'page-{engine}-{theme}.png'
            self.browser.screenshot(picture)
            self.assertGreater(picture.stat().st_size, 1000)
            self.assertLess(self.browser.unlikeness(picture, KEPT_PICTURES / picture.name), MOST_UNLIKE, picture)


class Moving(PageCase):

    def setUp(self):
        super().setUp()
        self.open('treemap')

    def test_wheel_zooms_to_the_pointer(self):
        before = self.view()
        self.browser.wheel(400, 300, -200)
        after = self.view()
        self.assertGreater(after['scale'], before['scale'] * 1.1)
        for axis, place in (('x', 400), ('y', 300)):
            at_first = (place - before[axis]) / before['scale']
            self.assertAlmostEqual((place - after[axis]) / after['scale'], at_first, delta=0.5)
        self.browser.wheel(400, 300, 200)
        self.assertAlmostEqual(self.view()['scale'], before['scale'], delta=0.001)

    def test_wheel_across_or_with_shift_moves_across(self):
        self.browser.wheel(400, 300, -300)
        for turn in (lambda: self.browser.wheel(400, 300, 20, across=50),
                     lambda: self.browser.wheel_with_shift(400, 300, 50)):
            before = self.view()
            turn()
            after = self.view()
            self.assertAlmostEqual(after['x'] - before['x'], -50, delta=1)
            self.assertEqual((after['y'], after['scale']), (before['y'], before['scale']))

    def test_drag_moves_by_as_much(self):
        self.browser.wheel(400, 300, -300)
        before = self.view()
        self.browser.drag((400, 300), (470, 260))
        after = self.view()
        self.assertAlmostEqual(after['x'] - before['x'], 70, delta=1)
        self.assertAlmostEqual(after['y'] - before['y'], -40, delta=1)
        self.assertEqual(after['scale'], before['scale'])
        self.assertNotIn('held', self.browser.panel(), 'a drag is no click')

    def test_pinch_zooms_between_the_fingers(self):
        before = self.view()
        self.browser.pinch((500, 400), 100, 200)
        after = self.view()
        self.assertAlmostEqual(after['scale'] / before['scale'], 2, delta=0.2)
        self.assertAlmostEqual((500 - after['x']) / after['scale'], (500 - before['x']) / before['scale'], delta=15)

    def test_two_fingers_together_move(self):
        before = self.view()
        self.browser.pinch((500, 400), 100, 100, moved=(60, 40))
        after = self.view()
        self.assertAlmostEqual(after['scale'] / before['scale'], 1, delta=0.1)
        self.assertAlmostEqual(after['x'] - before['x'], 60, delta=20)
        self.assertAlmostEqual(after['y'] - before['y'], 40, delta=20)

    def test_keys_zoom_to_the_pointer(self):
        self.browser.point(400, 300)
        before = self.view()
        self.press('+', '+')
        after = self.view()
        self.assertGreater(after['scale'], before['scale'] * 1.5)
        for axis, place in (('x', 400), ('y', 300)):
            at_first = (place - before[axis]) / before['scale']
            self.assertAlmostEqual((place - after[axis]) / after['scale'], at_first, delta=0.5)

    def test_arrows_move_behind_a_button(self):
        self.browser.run("document.getElementById('zoom-in').focus();")
        before = self.view()
        self.press('ArrowLeft')
        self.assertAlmostEqual(self.view()['x'] - before['x'], 60, delta=0.5)

    def test_keys_zoom_move_and_fit(self):
        fitted = self.view()
        self.press('+')
        larger = self.view()
        self.assertAlmostEqual(larger['scale'] / fitted['scale'], 1.25, delta=0.01)
        self.press('ArrowLeft', 'ArrowUp')
        moved = self.view()
        self.assertAlmostEqual(moved['x'] - larger['x'], 60, delta=0.5)
        self.assertAlmostEqual(moved['y'] - larger['y'], 60, delta=0.5)
        self.press('-')
        self.assertAlmostEqual(self.view()['scale'], fitted['scale'], delta=0.001)
        self.press('1')
        self.assertEqual(self.view()['scale'], 1)
        self.press('0')
        self.assertEqual(self.view(), fitted)

    def test_buttons_do_what_the_keys_do(self):
        fitted = self.view()
        self.click('#zoom-in')
        self.assertAlmostEqual(self.view()['scale'] / fitted['scale'], 1.25, delta=0.01)
        self.click('#actual-size')
        self.assertEqual(self.view()['scale'], 1)
        self.click('#fit')
        self.assertEqual(self.view(), fitted)

    def test_fit_makes_a_small_drawing_as_large_as_the_window(self):
        self.open('calls')
        self.assertEqual(self.view()['scale'], 1, 'it opens in its own size')
        self.press('0')
        left, top, right, bottom = self.browser.box('#stage')
        for width, height in ((1280, 800), (900, 700)):
            self.browser.resize(width, height)
            self.frames()
            left, top, right, bottom = self.browser.box('#stage')
            drawn = self.browser.box('#drawing')
            rooms = drawn[0] - left, drawn[1] - top, right - drawn[2], bottom - drawn[3]
            self.assertGreaterEqual(min(rooms), 0)
            self.assertLess(min(rooms), 20)
            self.assertGreater(self.view()['scale'], 2)
        self.assertTrue(self.browser.wait("return /view=/.test(location.hash);"), 'a link opens it as large')

    def test_picture_is_stretched_only_while_it_moves(self):
        hint = "return document.getElementById('paper').style.willChange"
        self.assertTrue(self.browser.wait(hint + " === '';"))
        self.browser.run('''window.seen = [];
            new MutationObserver(() => window.seen.push(document.getElementById('paper').style.willChange))
                .observe(document.getElementById('paper'), {attributes: true});''')
        self.browser.wheel(400, 300, -200)
        self.assertTrue(self.browser.wait("return window.seen.includes('transform');"))
        self.assertTrue(self.browser.wait(hint + " === '';"), 'it is painted anew at rest')

    def test_fitted_drawing_follows_the_window(self):
        self.browser.resize(800, 600)
        self.frames()
        left, _, right, bottom = self.browser.box('#stage')
        drawn = self.browser.box('#drawing')
        self.assertGreaterEqual(drawn[0], left)
        self.assertLessEqual(drawn[2], right + 0.5)
        self.assertLessEqual(drawn[3], bottom + 0.5)

    def test_motion_takes_time_unless_it_is_not_wanted(self):
        places = '''return new Promise(done => {
            const seen = new Set(), paper = document.getElementById('paper');
            document.getElementById('actual-size').click();
            let frames = 0;
            const look = () => { seen.add(paper.style.transform);
                ++frames < 40 ? requestAnimationFrame(look) : done(seen.size); };
            look();
        });'''
        self.assertLessEqual(self.browser.run(places), 2)
        self.press('0')
        self.browser.prefer(prefers_reduced_motion='no-preference')
        self.assertGreater(self.browser.run(places), 2)

    def test_double_click_goes_into_groups_and_the_trail_leads_back(self):
        fitted = self.view()
        inner = self.object('node', lambda i: not self.in_legend(i) and self.data['parent'][i] >= 0
                            and self.data['parent'][self.data['parent'][i]] >= 0)
        outer = inner
        while self.data['parent'][outer] >= 0:
            outer = self.data['parent'][outer]
        self.browser.click(*self.on_screen(inner), times=2)
        self.frames()
        self.assertIn('Whole drawing', self.browser.text('#trail'))
        self.assertGreater(self.view()['scale'], fitted['scale'])
        self.assertEqual(self.browser.count('#trail li'), 2)
        self.browser.click(*self.on_screen(inner), times=2)
        self.frames()
        self.assertEqual(self.browser.count('#trail li'), 3)
        self.click('#trail li:nth-child(2) button')
        self.assertEqual(self.browser.count('#trail li'), 2)
        self.press('Backspace')
        self.assertEqual(self.browser.text('#trail'), '')
        self.assertEqual(self.view(), fitted)


class Address(PageCase):

    def test_link_opens_the_same_place(self):
        self.open('treemap')
        i = self.object('node', lambda i: not self.in_legend(i))
        self.browser.wheel(*self.on_screen(i), -400)
        self.browser.click(*self.on_screen(i))
        self.frames()
        panel, view = self.browser.panel(), self.view()
        self.assertIn('held', panel)
        self.assertTrue(self.browser.wait("return /view=/.test(location.hash) && /chosen=/.test(location.hash);"))
        fragment = self.browser.run('return location.hash;')
        self.open('treemap', fragment)
        again = self.view()
        self.assertEqual(self.browser.panel(), panel)
        for name in ('x', 'y'):
            self.assertAlmostEqual(again[name], view[name], delta=2)
        self.assertAlmostEqual(again['scale'], view['scale'], delta=0.001)

    def test_query_and_theme_stand_in_it(self):
        self.open('treemap', '#query=a&theme=dark&table=1')
        self.frames()
        self.assertRegex(self.browser.text('#count'), r'\d+ found')
        self.assertEqual(self.browser.run('return document.documentElement.dataset.theme;'), 'dark')
        self.assertGreater(self.browser.count('#table tbody tr'), 0)

    def test_colour_of_a_legend_stands_in_it(self):
        self.open('treemap')
        fill = self.browser.run('''const entry = document.querySelector('#drawing [aria-pressed]');
            entry.dispatchEvent(new MouseEvent('click', {bubbles: true}));
            return [...entry.children].find(one => one instanceof SVGGeometryElement).getAttribute('fill');''')
        self.assertTrue(self.browser.wait("return /color=/.test(location.hash);"))
        lit = self.browser.count('#lit g[data-kind]')
        self.assertGreater(lit, 1)
        fragment = self.browser.run('return location.hash;')
        self.assertEqual(urllib.parse.parse_qs(fragment[1:])['color'], [fill])
        self.open('treemap', fragment)
        self.assertEqual(self.browser.count('#lit g[data-kind]'), lit)
        self.assertEqual(self.browser.count('#drawing [aria-pressed=true]'), 1)

    def test_transparent_entry_of_a_legend_is_no_colour(self):
        text = self.path('treemap').read_text('utf-8')
        self.open('treemap')
        fill = self.browser.run('''return document.querySelector('#drawing [aria-pressed] > path').getAttribute('fill');''')
        folder = self.enterContext(tempfile.TemporaryDirectory())
        page = pathlib.Path(folder) / 'transparent.html'
        page.write_text(text.replace(f'fill="{fill}"', f'fill-opacity="0" fill="{fill}"'), 'utf-8')
        before = self.browser.count('#drawing [aria-pressed]')
        self.browser.open(page, f'#color={urllib.parse.quote(fill)}')
        self.frames()
        self.assertEqual(self.browser.count('#drawing [aria-pressed]'), before - 1)
        self.assertEqual(self.browser.count('#drawing.dimmed'), 0)

    def test_colour_that_no_legend_has_lights_nothing(self):
        for engine, color in (('treemap', '%23F4F6F8'), ('treemap', 'none'), ('treemap', 'url(x)'), ('gftree', '%23E8EAED')):
            with self.subTest(engine=engine, color=color):
                self.open(engine, f'#color={color}')
                self.frames()
                self.assertEqual(self.browser.count('#drawing.dimmed'), 0)
                self.assertEqual(self.browser.count('#lit *'), 0)

    def test_nonsense_is_passed_over(self):
        self.open('treemap', '#view=a,b,c&chosen=99999.node.nobody&group=x&theme=pink&%E0%A4%A=%')
        self.assertEqual(self.browser.console(), [])
        self.assertIn('Drawing', self.browser.panel())
        self.assertEqual(self.browser.run('return document.documentElement.dataset.theme;'), 'light')


class PanelAndSearch(PageCase):

    def dots(self):
        """The number of pixels that the marks of what is found cover."""
        return self.browser.run('''const dots = document.getElementById('dots');
            const pixels = dots.getContext('2d').getImageData(0, 0, dots.width, dots.height).data;
            return pixels.filter((value, k) => k % 4 === 3 && value > 128).length;''')

    def setUp(self):
        super().setUp()
        self.open('treemap')
        self.node = self.object('node', lambda i: not self.in_legend(i))

    def test_click_holds_and_escape_lets_go(self):
        other = self.object('node', lambda i: i > self.node and not self.in_legend(i))
        self.browser.click(*self.on_screen(self.node))
        self.frames()
        held = self.browser.panel()
        self.assertIn(self.identity(self.node), held)
        self.point_at(other)
        self.assertEqual(self.browser.panel(), held)
        self.press('Escape')
        self.assertNotIn('held', self.browser.panel())

    def test_panel_has_the_path_of_groups(self):
        self.point_at(self.node)
        group = self.data['parent'][self.node]
        name = self.data['label'][group] or self.identity(group)
        self.assertIn(name, self.browser.panel())

    def test_search_counts_marks_and_steps(self):
        self.press('/')
        self.browser.type('test')
        self.assertTrue(self.browser.wait("return /found/.test(document.getElementById('count').textContent);"))
        count = int(self.browser.text('#count').split()[0].replace(',', ''))
        self.assertGreater(count, 2)
        outlines = self.browser.count('#marks .found .line')
        self.assertEqual(outlines, count)
        self.press('Enter')
        self.assertEqual(self.browser.text('#count'), f'1 of {count}')
        self.press('Shift+Enter')
        self.assertEqual(self.browser.text('#count'), f'{count} of {count}')
        self.assertIn('held', self.browser.panel())
        self.press('Escape')
        self.assertEqual(self.browser.text('#count'), '')
        self.assertEqual(self.dots(), 0)

    def test_search_reads_ids_and_values(self):
        known = [text for text in self.data['label'] if text] + self.browser.run(
            "return [...document.querySelectorAll('#drawing g[data-kind]')].map(g => g.dataset.id);")
        value = next(value for i in range(len(self.data['parent'])) for value in self.attributes(i).values()
                     if value and not any(value.lower() in text.lower() for text in known))
        for text in (self.identity(self.node), value):
            for query, told in (('zzqqxx', '^0 found'), (text, '^[1-9]')):
                self.browser.run('''const field = document.getElementById('query'); field.value = arguments[0];
                    field.dispatchEvent(new Event('input'));''', query)
                self.assertTrue(self.browser.wait(
                    "return new RegExp(arguments[0]).test(document.getElementById('count').textContent);", told), text)

    def test_search_reads_names_of_attributes_and_those_of_the_graph(self):
        for query, told in (('team', '1 found'), ('kind whole', '1 found'), ('owner', '0 found, and in the graph')):
            self.open('defaults', f'#query={query}')
            self.assertTrue(self.browser.wait("return document.getElementById('count').textContent === arguments[0];",
                                              told), self.browser.text('#count'))

    def test_nothing_found_is_told(self):
        self.press('/')
        self.browser.type('zzqqxx')
        self.assertTrue(self.browser.wait("return document.getElementById('count').textContent === '0 found';"))

    def test_current_hit_comes_into_view(self):
        self.browser.wheel(300, 200, -3000)
        self.press('/')
        self.browser.type(self.identity(self.data['legend']) if self.data['legend'] >= 0 else 'a')
        self.press('Enter')
        chosen = self.browser.box('#marks .chosen')
        stage = self.browser.box('#stage')
        self.assertLess(chosen[0], stage[2])
        self.assertGreater(chosen[2], stage[0])
        self.assertLess(chosen[1], stage[3])
        self.assertGreater(chosen[3], stage[1])

    def test_a_mark_keeps_its_size_when_the_drawing_is_small(self):
        self.open('treemap', '#query=test&view=10,10,0.02')
        self.frames()
        # All in one place, which one dot of constant size is enough for.
        self.assertGreater(self.dots(), 40)
        self.assertLess(self.dots(), 400)


class Defaults(PageCase):
    """Of `node [...]` and `edge [...]`, and what the graph and groups themselves were given."""

    def setUp(self):
        super().setUp()
        self.open('defaults')

    def described(self, kind, name):
        self.browser.run('location.hash = arguments[0];', f'#chosen=-.{kind}.{name}')
        self.assertTrue(self.browser.wait("return document.querySelector('#panel.held p') !== null;"))
        self.frames()
        return dict(self.browser.run("""return [...document.querySelectorAll('#panel dl dt')]
            .map(dt => [dt.textContent, dt.nextElementSibling.textContent]);"""))

    def test_are_shown_of_each_object(self):
        a = self.described('node', 'a')
        self.assertEqual((a['kind'], a['level']), ('whole', 'two'))
        c = self.described('node', 'c')
        self.assertEqual(c['kind'], 'part')
        self.assertNotIn('level', c)
        self.assertEqual(self.described('edge', 'a->b')['kind'], 'call')
        inner = self.described('cluster', 'cluster_d')
        self.assertEqual(set(inner), {'id', 'in', 'file'}, 'what the groups around say is their own')
        self.assertEqual(self.described('cluster', 'cluster_c')['team'], 'red team')

    def test_of_the_graph_are_shown_where_no_object_is(self):
        self.assertIn('everybody', self.browser.panel())
        self.assertEqual(self.browser.run("return document.querySelector('#panel a').href;"), 'https://a.example/')

    def test_are_found(self):
        for query, count in (('two', 2), ('part', 2), ('call', 1), ('red team', 1)):
            self.browser.run('location.hash = arguments[0];', f'#query={query}')
            self.assertTrue(self.browser.wait("return document.getElementById('count').textContent === arguments[0];",
                                              f'{count} found'), (query, self.browser.text('#count')))


class Undrawn(PageCase):
    """What is too small to be drawn: 300 nodes of a group, and another group with its node."""

    def setUp(self):
        super().setUp()
        self.open('small')

    def test_is_counted(self):
        self.assertEqual(self.browser.objects('node'), 2)
        self.assertIn('2 nodes, 1 group; 302 more not drawn by themselves', self.browser.panel())

    def test_is_found_and_marked_at_its_group(self):
        self.press('/')
        self.browser.type('speck')
        self.assertTrue(self.browser.wait("return document.getElementById('count').textContent === '300 found';"))
        self.assertEqual(self.browser.count('#marks .found .line'), 1)
        self.press('Enter', 'Enter')
        self.assertEqual(self.browser.text('#count'), '2 of 300')
        self.assertIn('Too small to be drawn here.', self.browser.panel())
        self.assertIn('sources', self.browser.panel())
        self.assertIn('src/1.c', self.browser.panel())
        self.assertEqual(self.browser.run("return document.querySelector('#marks .chosen .line').tagName;"), 'path')

    def test_leaves_what_is_drawn_its_names(self):
        drawn = self.browser.run("""
            return [...document.querySelectorAll('#drawing g[data-kind]')].map(({ dataset }) => [dataset.kind, dataset.id]);""")
        self.assertEqual(len(drawn), 3)
        for kind, name in drawn:
            self.open('small', f'#chosen=-.{kind}.{name}')
            self.frames()
            self.assertIn(name, self.browser.text('#panel.held'))

    def test_is_in_the_table(self):
        self.press('t')
        self.assertIn('of 305', self.browser.text('#table .turner'))
        self.browser.run('location.hash = "#table=1&query=mote";')
        self.assertTrue(self.browser.wait("return document.querySelectorAll('#table tbody tr').length === 1;"))
        self.click('#table tbody button')
        self.assertIn('Too small to be drawn here.', self.browser.panel())
        self.assertIn('tests', self.browser.panel())

    def test_group_can_be_chosen_and_zoomed_to_where_it_would_be(self):
        self.open('small', '#chosen=-.cluster.cluster_t')
        self.frames()
        self.assertIn('Too small to be drawn here.', self.browser.panel())
        self.press('z')
        self.open('small', '#chosen=-.node.speck7')
        self.frames()
        before = self.view()
        self.press('z')
        self.assertGreater(self.view()['scale'], before['scale'])
        self.assertEqual(self.browser.console(), [])

    def test_is_not_what_has_a_place_without_a_height(self):
        self.open('thin', '#chosen=-.node.b')
        self.frames()
        self.assertIn('held', self.browser.panel())
        self.assertNotIn('drawn', self.browser.panel())
        self.assertEqual(self.browser.count('#marks .chosen .line'), 1)


class ObjectTable(PageCase):

    def setUp(self):
        super().setUp()
        self.open('treemap')
        self.press('t')

    def column(self, name):
        heads = self.browser.run("return [...document.querySelectorAll('#table thead th')].map(th => th.innerText.split(' ')[0]);")
        place = heads.index(name) + 1
        return place, self.browser.run(f'''return [...document.querySelectorAll(
            '#table tbody tr > :nth-child({place})')].map(cell => cell.innerText);''')

    def test_has_all_objects_in_pages(self):
        count = len(self.data['parent'])
        self.assertEqual(self.browser.count('#table tbody tr'), min(count, 200))
        self.assertIn(f'of {count:,}', self.browser.text('.turner'))
        if count > 200:
            self.click('.turner button:nth-of-type(3)')
            self.assertIn('Objects 201', self.browser.text('.turner'))

    def test_sorts_by_a_column_and_back(self):
        place, _ = self.column('Value')
        sort = f'#table thead th:nth-child({place})'
        def values():
            return [float(text.split(' (')[0].replace(',', '')) for text in self.column('Value')[1] if text]
        self.click(sort + ' button')
        self.assertEqual(values(), sorted(values()))
        self.assertEqual(self.browser.run(f"return document.querySelector('{sort}').ariaSort;"), 'ascending')
        self.click(sort + ' button')
        self.assertEqual(values(), sorted(values(), reverse=True))
        self.assertGreater(len(set(values())), 1)
        self.assertEqual(self.browser.run(f"return document.querySelector('{sort}').ariaSort;"), 'descending')

    def test_row_chooses_its_object(self):
        name = self.browser.text('#table tbody tr:nth-child(3) button')
        self.click('#table tbody tr:nth-child(3) button')
        self.assertTrue(self.browser.panel().startswith(name))
        self.assertIn('held', self.browser.panel())

    def test_search_filters_the_rows(self):
        self.press('/')
        self.browser.type('test')
        self.assertTrue(self.browser.wait("return /found/.test(document.getElementById('count').textContent);"))
        self.frames()
        count = int(self.browser.text('#count').split()[0])
        self.assertIn(f'of {count:,}', self.browser.text('.turner'))

    def test_escape_and_t_close_it(self):
        self.press('Escape')
        self.assertFalse(self.browser.run("return document.getElementById('table').checkVisibility();"))
        self.press('t')
        self.assertTrue(self.browser.run("return document.getElementById('table').checkVisibility();"))


class Keyboard(PageCase):

    FOCUS = "return document.activeElement.dataset?.id ?? '';"

    def test_tab_reaches_the_drawing_and_keys_go_through_it(self):
        self.open('treemap')
        for _ in range(40):
            self.press('Tab')
            if self.browser.run("return document.activeElement.matches('#drawing g[data-kind]');"):
                break
        first = self.browser.run(self.FOCUS)
        self.assertNotEqual(first, '')
        self.assertIn(first, self.browser.panel())
        self.press('i')
        inner = self.browser.run(self.FOCUS)
        self.assertNotEqual(inner, first)
        self.press('n')
        self.assertNotEqual(self.browser.run(self.FOCUS), inner)
        self.press('p')
        self.assertEqual(self.browser.run(self.FOCUS), inner)
        self.press('o')
        self.assertEqual(self.browser.run(self.FOCUS), first)
        self.press('Enter')
        self.assertIn('held', self.browser.panel())
        self.assertEqual(self.browser.count('#drawing g[data-kind][role=img][tabindex], '
                                            '#drawing g[data-kind][role=group][tabindex]'), 1)

    def test_every_object_can_be_reached(self):
        for engine in ('gfdecl', 'umlseq', 'matrix', 'gftree'):
            with self.subTest(engine):
                self.open(engine)
                seen = self.browser.run('''
                    const all = [...document.querySelectorAll('#drawing g[data-kind]')];
                    const seen = new Set();
                    const key = key => { const at = document.activeElement;
                        at.dispatchEvent(new KeyboardEvent('keydown', {key, bubbles: true, cancelable: true}));
                        return document.activeElement; };
                    const focus = one => { one.setAttribute('tabindex', '0'); one.focus(); };
                    const siblings = start => { const list = [];
                        for (let at = start; !list.includes(at); at = key('n')) list.push(at);
                        return list; };
                    const todo = [key('n')];
                    while (todo.length > 0) {
                        focus(todo.shift());
                        const list = siblings(document.activeElement);
                        for (const one of list) {
                            if (seen.has(one)) continue;
                            seen.add(one);
                            focus(one);
                            const inner = one.dataset.kind === 'cluster' ? key('i') : one;
                            if (inner !== one && !seen.has(inner)) todo.push(inner);
                            focus(one);
                        }
                    }
                    return all.filter(one => !seen.has(one)).map(one => one.dataset.id);''')
                self.assertEqual(seen, [])

    def test_every_object_has_a_role_and_a_name(self):
        for engine in ENGINES:
            with self.subTest(engine):
                self.open(engine)
                self.assertTrue(self.browser.wait('''return [...document.querySelectorAll('#drawing g[data-kind]')]
                    .every(one => one.hasAttribute('role') && one.getAttribute('aria-label'));'''))
                last = self.identity(len(self.data['box']) // 4 - 1)
                role, name = self.browser.accessible(f'#drawing g[data-id="{last}"]')
                self.assertIn(role, ('image', 'group', 'button'))
                self.assertNotEqual(name, '')

    def test_focus_is_seen(self):
        self.open('treemap')
        self.press('n')
        width = self.browser.run('''const line = document.querySelector('#marks .pointed .line');
            return line ? parseFloat(getComputedStyle(line).strokeWidth) : 0;''')
        self.assertGreaterEqual(width, 2)

    def test_keys_of_one_character_can_be_off(self):
        self.open('treemap')
        self.press('?')
        self.click('#letters')
        self.press('Escape')
        before = self.view()
        self.press('t', '+', 'n', '?')
        self.assertEqual(self.view(), before)
        self.assertEqual(self.browser.text('#table'), '')
        self.assertEqual(self.browser.run("return document.querySelectorAll('dialog[open]').length;"), 0)
        self.press('ArrowLeft')
        self.assertNotEqual(self.view(), before)
        self.assertTrue(self.browser.wait("return location.hash.includes('keys=off');"))
        self.open('treemap', '#keys=off')
        self.press('t')
        self.assertEqual(self.browser.text('#table'), '')
        self.click('#help-button')
        self.click('#letters')
        self.press('Escape')
        self.press('t')
        self.assertNotEqual(self.browser.text('#table'), '')

    def test_help_lists_the_keys_and_closes(self):
        self.open('treemap')
        self.press('?')
        self.assertTrue(self.browser.run("return document.getElementById('help').open;"))
        text = self.browser.text('#help')
        for key in ('Arrows', 'Enter', 'Escape', 'Backspace', '/', 'search', 'table'):
            self.assertIn(key, text)
        self.press('Escape')
        self.assertFalse(self.browser.run("return document.getElementById('help').open;"))


class Themes(PageCase):

    THEME = 'return document.documentElement.dataset.theme;'

    def test_system_decides_until_the_switch_does(self):
        self.browser.prefer(prefers_color_scheme='dark')
        self.open('gftree')
        self.assertEqual(self.browser.run(self.THEME), 'dark')
        self.click('#theme')
        self.assertEqual(self.browser.run(self.THEME), 'light')
        self.assertIn('light', self.browser.text('#theme'))
        self.click('#theme')
        self.assertEqual(self.browser.run(self.THEME), 'dark')
        self.browser.prefer(prefers_color_scheme='light')
        self.click('#theme')
        self.assertEqual(self.browser.run(self.THEME), 'light')

    def contrasts(self):
        """Of each text with what lies beneath its middle: the last fill before it that hides, or the page.

        The entries are the text, the contrast and whether it lies on a fill.
        """
        return self.browser.run('''
            const light = color => { const [r, g, b] = color.match(/[\\d.]+/g).slice(0, 3).map(v => v / 255)
                .map(v => v <= 0.04045 ? v / 12.92 : ((v + 0.055) / 1.055) ** 2.4);
                return 0.2126 * r + 0.7152 * g + 0.0722 * b + 0.05; };
            const page = light(getComputedStyle(document.body).backgroundColor);
            const seen = [...document.querySelectorAll('#drawing [data-kind] *')]
                .filter(one => one instanceof SVGGeometryElement || one.localName === 'text');
            const fills = [], found = [];
            for (const one of seen) {
                const style = getComputedStyle(one), box = one.getBBox();
                if (one.localName !== 'text') {
                    if (style.fill !== 'none' && style.fillOpacity >= 0.5)
                        fills.unshift([one, light(style.fill)]);
                    continue;
                }
                const middle = new DOMPoint(box.x + box.width / 2, box.y + box.height / 2).matrixTransform(one.getCTM());
                const below = fills.find(([shape]) =>
                    shape.isPointInFill(middle.matrixTransform(shape.getCTM().inverse())))?.[1] ?? page;
                const text = light(style.fill);
                found.push([one.textContent, Math.max(text, below) / Math.min(text, below), below !== page]);
            }
            return found;''')

    def test_texts_in_the_dark_are_read(self):
        seen = {True: 0, False: 0}
        for page in [*ENGINES, 'lights', 'rich', 'heads', 'calls', 'many']:
            with self.subTest(page):
                self.open(page, '#theme=dark')
                found = self.contrasts()
                self.assertGreater(len(found), 0)
                for text, contrast, on_fill in found:
                    self.assertGreaterEqual(contrast, 4.5, text)
                    seen[on_fill] += 1
        self.assertGreater(min(seen.values()), 0)

    def painted(self, name, paint, selector='*'):
        """The colour that a part of an object has on the screen, as three numbers."""
        color = self.browser.run('''return getComputedStyle(document.querySelector(
            `#drawing [data-id="${arguments[0]}"] > ${arguments[1]}`))[arguments[2]];''', name, selector, paint)
        return [int(part) for part in re.findall(r'\d+', color)[:3]]

    def test_fills_of_nodes_stay_where_they_are_black(self):
        self.open('lights', '#theme=dark')
        for name in ('black', 'faint'):
            self.assertEqual(self.painted(name, 'fill', 'polygon'), [0, 0, 0])
        self.assertEqual(self.painted('black', 'fill', 'text'), [255, 255, 255])
        self.assertEqual(self.painted('black', 'stroke', 'polygon'), [0, 0, 0], 'a line stays with its fill')

    def test_text_goes_by_what_hides_the_page_at_its_middle(self):
        self.open('lights', '#theme=dark')
        self.assertEqual(self.painted('thin', 'fill', 'text'), [0, 0, 0])
        self.assertGreater(min(self.painted('faint', 'fill', 'text')), 200)
        self.assertGreater(min(self.painted('faint', 'stroke', 'polygon')), 200)

    def test_colours_keep_their_hue(self):
        self.open('lights', '#theme=dark')
        red, green, blue = self.painted('red', 'fill', 'text')
        self.assertEqual((red, green), (255, blue))
        self.assertTrue(0 < green < 60, green)
        self.assertEqual(self.painted('thin->red', 'stroke'), [255, 0, 0], 'enough for a line')
        red, green, blue = self.painted('black->thin', 'stroke')
        self.assertEqual((red, blue), (green, 255))
        self.assertTrue(60 < green < 160, green)
        for name, paint in (('grey', 'fill'), ('red->grey', 'stroke')):
            red, green, blue = self.painted(name, paint)
            self.assertEqual((red, green), (green, blue))
            self.assertGreater(red, 150)

    def test_rich_texts_turn_where_they_lie_on_the_page(self):
        self.open('rich', '#theme=dark')
        def texts(name, part='text'):
            return self.browser.run('''return [...document.querySelectorAll(`#drawing [data-id=${arguments[0]}] ${arguments[1]}`)]
                .filter(one => one.localName !== 'text' || one.textContent.trim() !== '')
                .map(one => getComputedStyle(one)[one.localName === 'text' ? 'fill' : 'stroke']);''', name, part)
        self.assertEqual(set(texts('fill')), {'rgb(0, 0, 0)'})
        self.assertEqual(set(texts('table')), {'rgb(0, 0, 0)'})
        self.assertGreaterEqual(len(texts('page')), 3)
        self.assertNotIn('rgb(0, 0, 0)', texts('page'))
        self.assertNotIn('rgb(128, 0, 0)', texts('page'))
        self.assertNotIn('rgb(0, 0, 0)', texts('page', 'polyline'))
        self.assertGreater(len(texts('page', 'polyline')), 0)

    def assert_copies_are_as_drawn(self, layer):
        """What lies over the drawing has the colours of what it was copied from, and some have turned."""
        self.frames()
        colors, turned = self.browser.run('''
            const of = one => [...one.querySelectorAll(':scope > :not(g)')].map(part =>
                [part.localName, getComputedStyle(part).fill, getComputedStyle(part).stroke].join());
            const copies = [...document.querySelectorAll(arguments[0] + ' [data-id]')];
            return [copies.map(copy => [of(copy),
                        of(document.querySelector(`#drawing [data-id="${CSS.escape(copy.dataset.id)}"]`))]),
                    copies.filter(copy => [...copy.querySelectorAll('text')].some(text =>
                        getComputedStyle(text).fill !== 'rgb(0, 0, 0)')).length];''', layer)
        self.assertGreater(turned, 0)
        for copy, drawn in colors:
            self.assertEqual(copy, drawn)

    def test_heads_of_lifelines_turn_with_them(self):
        self.open('heads', '#theme=dark')
        self.assert_copies_are_as_drawn('#heads')
        self.open('heads')
        self.click('#theme')
        self.click('#theme')
        self.assertEqual(self.browser.run(self.THEME), 'dark')
        self.assert_copies_are_as_drawn('#heads')

    def test_what_is_lit_turns_too(self):
        self.open('calls', '#chosen=-.node.a&theme=dark')
        self.assert_copies_are_as_drawn('#lit')
        self.open('calls', '#chosen=-.node.a&theme=light')
        self.click('#theme')
        self.assertEqual(self.browser.run(self.THEME), 'dark')
        self.assert_copies_are_as_drawn('#lit')

    def test_numbers_of_a_matrix_stay_dark_on_their_squares(self):
        self.open('matrix', '#theme=dark')
        self.frames()
        numbers = self.browser.run('''return [...document.querySelectorAll('#drawing [data-kind=edge] text')]
            .map(text => getComputedStyle(text).fill);''')
        self.assertGreater(len(numbers), 0)
        self.assertEqual(set(numbers), {'rgb(0, 0, 0)'})

    def test_fills_stay(self):
        fills = '''return [...document.querySelectorAll('#drawing path[fill]')]
            .filter(one => one.getAttribute('fill') !== 'none').map(one => getComputedStyle(one).fill);'''
        self.open('treemap', '#theme=light')
        light = self.browser.run(fills)
        self.open('treemap', '#theme=dark')
        self.assertEqual(self.browser.run(fills), light)
        self.assertGreater(len(light), 0)

    def test_small_drawing_is_printed_large(self):
        self.open('calls')
        own = self.browser.run("return Number(document.getElementById('drawing').getAttribute('width'));")
        self.browser.prefer(media='print')
        matrix = self.browser.run("return document.getElementById('drawing').getScreenCTM().a;")
        self.assertGreater(matrix, 2)
        left, top, right, bottom = self.browser.box('#drawing')
        self.assertLess(own * matrix, right - left + 1)
        self.assertLessEqual(bottom, 801)
        self.browser.prefer(media='')
        self.assertEqual(self.browser.pages_when_printed(), 1)

    def test_print_is_light_and_has_no_chrome(self):
        self.open('treemap', '#theme=dark&view=100,100,4')
        self.browser.prefer(media='print')
        self.assertEqual(self.browser.run('return getComputedStyle(document.body).backgroundColor;'),
                         'rgb(255, 255, 255)')
        for part in ('#bar', '#panel', '#table', '#marks'):
            self.assertEqual(self.browser.text(part), '')
        self.assertEqual(self.browser.run(VIEW)['scale'], 1)


class Charts(PageCase):

    def test_shares_of_the_parent_and_the_whole(self):
        for engine in CHARTS:
            with self.subTest(engine):
                self.open(engine)
                i = self.object('node', lambda i: not self.in_legend(i) and self.data['parent'][i] >= 0)
                self.press('n')
                self.browser.run('location.hash = arguments[0];', f'#chosen={i}.node.{self.identity(i)}')
                self.assertTrue(self.browser.wait("return document.querySelector('#panel .shares') !== null;"))
                value, parent = self.data['value'][i], self.data['value'][self.data['parent'][i]]
                shares = [float(text) for text in re.findall(r'([\d.]+) %', self.browser.text('#panel .shares'))]
                self.assertEqual(len(shares), 2)
                self.assertAlmostEqual(shares[0], 100 * value / parent, delta=0.06 * 100 * value / parent)
                self.assertAlmostEqual(shares[1], 100 * value / self.data['total'],
                                       delta=0.06 * 100 * value / self.data['total'])

    def test_legend_lights_its_colour_by_click_and_key(self):
        self.open('treemap')
        if self.data['legend'] < 0:
            self.skipTest('the example has no legend')
        entry = self.object('node', self.in_legend)
        color = self.browser.run('''return document.querySelectorAll('#drawing g[data-kind]')[arguments[0]]
            .querySelector('rect, path').getAttribute('fill');''', entry)
        same = self.browser.run('''return [...document.querySelectorAll('#drawing g[data-kind=node]')].filter(g =>
            [...g.children].find(c => c.localName !== 'text')?.getAttribute('fill') === arguments[0]).length;''', color)
        pressed = f'#drawing g[data-id="{self.identity(entry)}"][aria-pressed=true]'
        self.browser.click(*self.on_screen(entry))
        self.frames()
        self.assertEqual(self.browser.count('#lit g'), same)
        self.assertEqual(self.browser.count('#drawing.dimmed'), 1)
        self.assertEqual(self.browser.count(pressed), 1)
        self.press('Escape')
        self.assertEqual(self.browser.count('#lit g'), 0)
        self.browser.run('document.querySelectorAll("#drawing g[data-kind]")[arguments[0]].focus();', entry)
        self.press('Enter')
        self.assertEqual(self.browser.count(pressed), 1)
        self.press(' ')
        self.assertEqual(self.browser.count(pressed), 0)


class Readers(PageCase):

    def test_tree_lights_callers_and_callees(self):
        self.open('gftree')
        tail, head = next(iter(self.data['ends'].values()))
        self.browser.click(*self.on_screen(head))
        self.frames()
        lit = self.browser.run("return [...document.querySelectorAll('#lit g')].map(g => g.dataset.id);")
        wanted = {head} | {int(e) for e, ends in self.data['ends'].items() if head in ends}
        wanted |= {end for ends in self.data['ends'].values() if head in ends for end in ends}
        self.assertEqual(sorted(lit), sorted(self.identity(i) for i in wanted))
        self.assertLess(len(lit), self.browser.objects())
        self.assertIn('Callers', self.browser.panel())
        self.assertEqual(self.browser.count('#drawing.dimmed'), 1)
        self.press('Escape')
        self.assertEqual(self.browser.count('#drawing.dimmed'), 0)

    def test_ends_of_an_edge_are_buttons(self):
        self.open('gftree')
        edge, (tail, _) = next(iter(self.data['ends'].items()))
        self.browser.run('location.hash = arguments[0];', f'#chosen={edge}.edge.{self.identity(int(edge))}')
        self.assertTrue(self.browser.wait("return document.querySelectorAll('#panel dd button').length === 2;"))
        self.click('#panel dd button')
        self.assertIn(self.identity(tail), self.browser.panel())

    def test_matrix_lights_row_and_column(self):
        self.open('matrix')
        edge = self.object('edge')
        self.point_at(edge)
        bands = self.browser.run('''return [...document.querySelectorAll('#marks .bands rect')].map(rect =>
            ['x', 'y', 'width', 'height'].map(name => Number(rect.getAttribute(name))));''')
        x, y, width, height = self.data['box'][4 * edge:4 * edge + 4]
        self.assertEqual(bands, [[x, 0, width, self.data['size'][1]], [0, y, self.data['size'][0], height]])
        self.browser.point(5, 5)
        self.frames()
        self.assertEqual(self.browser.count('#marks .bands rect'), 0)

    def test_heads_of_lifelines_stay_in_view(self):
        self.open('umlseq')
        self.assertEqual(self.browser.count('#heads .head:not(.away)'), 0)
        self.browser.wheel(500, 400, -500)
        self.browser.drag((500, 700), (500, 100))
        self.frames()
        heads = self.browser.count('#heads .head:not(.away)')
        self.assertEqual(heads, len(self.data['heads']))
        view = self.view()
        for k, i in enumerate(self.data['heads']):
            left, top, right, bottom = self.browser.box(f'#heads .head:nth-child({k + 1})')
            self.assertGreaterEqual(top, self.browser.box('#stage')[1] - 1)
            self.assertLess(bottom, self.browser.box('#stage')[1] + 100)
            x, _, width, _ = self.data['box'][4 * i:4 * i + 4]
            self.assertAlmostEqual((left + right) / 2, view['x'] + (x + width / 2) * view['scale'], delta=2)


    def test_heads_that_stay_in_view_can_be_pointed_at(self):
        self.open('umlseq')
        self.browser.wheel(500, 400, -500)
        self.browser.drag((500, 700), (500, 100))
        self.frames()
        heads = [self.browser.box(f'#heads .head:nth-child({k + 1})') for k in range(len(self.data['heads']))]
        k, (left, top, right, bottom) = next((k, box) for k, box in enumerate(heads) if box[0] > 0 and box[2] < 900)
        self.browser.point((left + right) / 2, (top + bottom) / 2)
        self.frames()
        self.assertIn(self.identity(self.data['heads'][k]), self.browser.panel())


class Pieces(PageCase):
    """The first and the third group of the drawing are one object, which the second one lies between."""

    def setUp(self):
        super().setUp()
        self.open('pieces')
        self.assertEqual(self.data['same'], {'2': 0})

    def test_each_stands_for_the_whole(self):
        panels = []
        for piece in (0, 2):
            self.point_at(piece)
            panels.append(self.browser.panel())
            self.assertEqual(self.browser.count('#marks .pointed .line'), 2)
        self.assertIn('in two pieces', panels[0])
        self.assertEqual(panels[0], panels[1])
        self.browser.click(*self.on_screen(2))
        self.frames()
        self.assertIn('held', self.browser.panel())
        self.assertTrue(self.browser.wait("return location.hash.includes('chosen=0.node.twice');"))

    def test_count_as_one(self):
        self.assertIn('2 nodes', self.browser.panel())
        self.press('t')
        self.assertEqual(self.browser.count('#table tbody tr'), 2)
        self.press('t', '/')
        self.browser.type('pieces')
        self.assertTrue(self.browser.wait("return document.getElementById('count').textContent === '1 found';"))
        self.assertEqual(self.browser.count('#marks .found .line'), 2)

    def test_are_one_stop_for_the_keys(self):
        stops = []
        for _ in range(3):
            self.press('n')
            stops.append(self.browser.run('return document.activeElement.dataset.id;'))
        self.assertEqual(stops, ['twice', 'once', 'twice'])

    def test_link_to_the_second_leads_to_the_whole(self):
        self.open('pieces', '#chosen=2.node.twice')
        self.frames()
        self.assertIn('in two pieces', self.browser.panel())
        self.assertEqual(self.browser.count('#marks .chosen .line'), 2)


class ManyTexts(PageCase):
    """Of 2,500 texts in a drawing that is far larger than the window."""

    SHOWN = "return [...document.querySelectorAll('#drawing text')].filter(text => text.checkVisibility()).length;"

    def zoom_in(self):
        self.press('n', 'z')
        self.assertTrue(self.browser.wait(self.SHOWN.replace('.length', '.length > 0')))
        self.frames()

    def test_are_out_while_they_are_too_small(self):
        self.open('many')
        self.assertEqual(self.browser.count('#drawing text'), 2500)
        self.assertEqual(self.browser.run(self.SHOWN), 0)
        self.zoom_in()
        self.assertIn('cell 0', self.browser.run(
            "return [...document.querySelectorAll('#drawing text.shown')].map(text => text.textContent);"))
        self.assertLess(self.browser.run(self.SHOWN), 100)
        self.assertEqual(self.browser.console(), [])

    def test_come_some_at_a_time(self):
        self.browser.resize(2600, 1800)
        self.open('many', '#view=4800,3600,0.26')
        self.assertTrue(self.browser.wait(self.SHOWN.replace('.length', '.length > 1000')))
        self.assertTrue(self.browser.wait('''const { left, top, right, bottom } = document.getElementById('stage').getBoundingClientRect();
            return [...document.querySelectorAll('#drawing g[data-kind]')].filter(one => {
                const box = one.getBoundingClientRect();
                return box.left > left && box.right < right && box.top > top && box.bottom < bottom;
            }).every(one => one.lastElementChild.checkVisibility());'''))

    def test_are_all_on_paper(self):
        self.open('many')
        self.browser.prefer(media='print')
        self.assertEqual(self.browser.run(self.SHOWN), 2500)

    def test_turn_dark_when_they_come(self):
        self.open('many', '#theme=dark')
        self.assertEqual(self.browser.run(self.SHOWN), 0)
        self.zoom_in()
        fills = self.browser.run('''return [...document.querySelectorAll('#drawing text.shown')]
            .map(text => getComputedStyle(text).fill);''')
        self.assertGreater(len(fills), 0)
        self.assertNotIn('rgb(0, 0, 0)', fills)

    def test_are_found_by_the_search(self):
        self.open('many', '#query=cell 77')
        self.frames()
        self.assertEqual(self.browser.text('#count'), f"{sum('77' in str(i) for i in range(2500))} found")


class Large(PageCase):
    """20,000 cells, in limits that a busy machine keeps by far."""

    def test_follows_the_wheel(self):
        self.open('large')
        self.assertEqual(self.browser.objects('node'), 20000)
        gaps = self.browser.run('''const stage = document.getElementById('stage'), times = [];
            return new Promise(done => {
                const frame = now => {
                    times.push(now);
                    if (times.length > 40)
                        return done(times.slice(1).map((time, i) => time - times[i]).sort((a, b) => a - b));
                    stage.dispatchEvent(new WheelEvent('wheel', {clientX: 500, clientY: 400,
                        deltaY: times.length <= 20 ? -60 : 60, bubbles: true, cancelable: true}));
                    requestAnimationFrame(frame);
                };
                requestAnimationFrame(frame);
            });''')
        self.assertLess(gaps[len(gaps) // 2], 500)

    def test_needs_no_look_at_its_objects_to_be_dark(self):
        self.open('large', '#theme=dark')
        self.assertGreater(self.browser.count('#drawing [class^=d]'), 1000)
        self.assertEqual(self.browser.console(), [])


class Trouble(PageCase):

    def changed(self, change):
        text = self.path('gftree').read_text('utf-8')
        folder = self.enterContext(tempfile.TemporaryDirectory())
        page = pathlib.Path(folder) / 'changed.html'
        page.write_text(change(text), 'utf-8')
        self.assertNotEqual(page.read_text('utf-8'), text)
        return page

    def test_damaged_table_is_told_and_the_drawing_shows(self):
        places = {
            'damaged': lambda t: re.sub(r'(id="page-data">).*?(</script>)', r'\1{"engine":\2', t, flags=re.S),
            'missing': lambda t: re.sub(r'<script type="application/json".*?</script>', '', t, flags=re.S),
            'does not fit': lambda t: re.sub(r'<g data-kind="node"', '<g data-kind="node"></g><g data-kind="node"', t, count=1),
            'incomplete': lambda t: t.replace('"parent":', '"parents":'),
        }
        for word, change in places.items():
            with self.subTest(word):
                self.browser.open(self.changed(change))
                self.frames()
                self.assertIn(word, self.browser.text('#notice'))
                self.assertGreater(self.browser.run(VIEW)['scale'], 0)
                before = self.view()
                self.press('+')
                self.assertGreater(self.view()['scale'], before['scale'])
                self.assertEqual(self.browser.console(), [])

    def test_all_texts_are_there_without_a_table(self):
        text = self.path('many').read_text('utf-8')
        folder = self.enterContext(tempfile.TemporaryDirectory())
        page = pathlib.Path(folder) / 'changed.html'
        page.write_text(text.replace('"parent":', '"parents":'), 'utf-8')
        self.browser.open(page)
        self.assertEqual(self.browser.run(ManyTexts.SHOWN), 2500)

    def test_side_below_zero_is_no_fault(self):
        self.open('thin')
        self.frames()
        self.assertEqual(self.browser.console(), [])
        self.assertGreater(self.browser.count('#drawing rect[height="0"]'), 0)

    def test_drawing_shows_without_script(self):
        self.browser.command('Emulation.setScriptExecutionDisabled', value=True)
        self.addCleanup(self.browser.command, 'Emulation.setScriptExecutionDisabled', value=False)
        self.browser.open(self.path('gftree'))
        text = self.browser.command('DOM.getDocument', depth=0)
        self.assertEqual(text['root']['nodeName'], '#document')
        shown = self.browser.command('Page.captureScreenshot')
        self.assertGreater(len(shown['data']), 10000)

    def test_hostile_texts_stay_texts(self):
        for engine in ENGINES:
            with self.subTest(engine):
                self.open(f'hostile-{engine}')
                self.assert_harmless()

    def assert_harmless(self):
        """What the texts say is nowhere more than a text."""
        self.frames()
        for _ in range(3):
            self.press('n', 'Enter')
        self.press('t')
        self.assertEqual(self.browser.console(), [])
        self.assertEqual(self.browser.count('img, iframe, object, embed, base, video, form'), 0)
        self.assertEqual(self.browser.count('link:not([rel="expect"][href^="#"])'), 0)
        self.assertEqual(self.browser.count('script'), 2)
        self.assertEqual(self.browser.count('style'), 1)
        self.assertEqual(self.browser.run('''return [...document.querySelectorAll('*')].flatMap(element =>
            element.getAttributeNames().filter(name => /^on|^style$/.test(name) && element.id !== 'paper'));'''), [])
        self.assertEqual(self.browser.run('return window.hurt ?? null;'), None)
        links = self.browser.run("return [...document.querySelectorAll('a')].map(a => a.href);")
        for link in links:
            self.assertRegex(link, r'^(https?|file):')

    def test_schemes_other_than_http_are_no_links(self):
        values = {
            'https://a.example/x?y=1': 'https://a.example/x?y=1', 'HTTP://a.example/': 'HTTP://a.example/',
            'src/a.cpp#L3': 'src/a.cpp#L3', '../b.html': '../b.html', '//a.example/x': 'https://a.example/x',
            'javascript:alert(1)': None, ' java\nscript:alert(1)': None, '\x01javascript:alert(1)': None,
            'data:text/html,x': None, 'file:///etc/passwd': None, 'vbscript:x': None, 'blob:x': None,
            'java\tscript&colon;alert(1)': None, 'mailto:a@b': None, '': None,
            'jAvAsCrIpT:alert(1)': None, 'java\u00a0script:x': None, 'https:\\\\a': None, '/x:y': '/x:y',
            'docs/my file.html': 'docs/my%20file.html', '  a b.html#c d ': 'a%20b.html#c%20d', 'docs/my\nfile.html': None,
            'docs/my\x7ffile.html': None, 'java script:x': None, 'x\u00a0y.html': 'x\u00a0y.html',
            'ja\u200bvascript:x': None, 'https://a.example/x y': 'https://a.example/x%20y',
        }
        def change(text):
            data = json.loads(re.search(r'id="page-data">(.*?)</script>', text, re.S).group(1))
            data['names'] += ['url']
            data['values'] = ['#' + value for value in values]
            data['sets'] = [[-1] + [len(data['names']) - 1] * len(values), [-1]]
            data['set'] = [0, 1, 1, sum(data['set'][1::2]) - 1]
            written = json.dumps(data).replace('<', '\\u003c')
            return re.sub(r'(id="page-data">).*?(</script>)', lambda m: m.group(1) + written + m.group(2), text, flags=re.S)
        self.browser.open(self.changed(change))
        first = self.browser.run("const g = document.querySelector('#drawing g[data-kind]'); return `0.${g.dataset.kind}.${g.dataset.id}`;")
        self.browser.run('location.hash = `#chosen=${encodeURIComponent(arguments[0])}`;', first)
        self.assertTrue(self.browser.wait("return document.querySelector('#panel.held') !== null;"))
        links = self.browser.run('''return [...document.querySelectorAll('#panel dl:first-of-type dd')].slice(-arguments[0])
            .map(dd => dd.querySelector('a')?.getAttribute('href') ?? null);''', len(values))
        self.assertEqual(dict(zip(values, links)), values)
        self.assertEqual(self.browser.count('#panel a:not([rel~=noopener])'), 0)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('pages', help='folder of the pages')
    parser.add_argument('--axe', help='axe.min.js of axe-core')
    parser.add_argument('--pictures', help='folder that gets a screenshot of each page, light and dark')
    _, rest = parser.parse_known_args(namespace=SETTINGS)
    missing = missing_programs()
    if missing:
        print('no browser: there is no ' + ' and no '.join(missing), file=sys.stderr)
        sys.exit(1 if IN_CI else NOT_HERE)
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == '__main__':
    main()
