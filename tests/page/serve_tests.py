#!/usr/bin/env python3
"""Looks at what `orr serve` shows in a real browser.

    serve_tests.py ORR FOLDER [--axe axe.min.js] [--pictures FOLDER] [unittest's own arguments]

ORR is the program and FOLDER that of the project's examples. What can't be had is passed over: without a browser
the status is 77, without axe-core there is no audit. With CI=true either is a failure.
"""

import argparse
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

from browser import Browser, KEPT_PICTURES, MOST_UNLIKE, missing_programs

ENGINES = ['treemap', 'sunburst', 'flatbubble', 'bar', 'matrix', 'umlseq', 'gftree', 'gfdecl']
FORMATS = {'SVG': 'svg', 'PNG': 'png', 'JPG': 'jpg', 'XDOT1.2': 'xdot', 'VSDX': 'vsdx', 'VDX': 'vdx'}
STARTS = {'svg': b'<?xml', 'png': b'\x89PNG', 'jpg': b'\xff\xd8', 'xdot': b'digraph', 'vsdx': b'PK', 'vdx': b'<?xml'}
IN_CI = os.environ.get('CI') == 'true'
NOT_HERE = 77  # the status of a test that is skipped
SETTINGS = argparse.Namespace(orr=None, examples=None, axe=None, pictures=None)

# The page that is shown, as against one that is still loading.
PAGE = "const page = document.querySelector('iframe:not(.coming)')?.contentDocument;"


def graph(*labels):
    """A tree with these labels, the first one above the others."""
    nodes = ''.join(f'    n{i} [label="{label}"];\n' for i, label in enumerate(labels))
    return 'digraph {\n' + nodes + ''.join(f'    n0 -> n{i};\n' for i in range(1, len(labels))) + '}\n'


class ServeCase(unittest.TestCase):
    """Tests that share a browser; each has a server of its own, with a file in a folder of its own."""

    @classmethod
    def setUpClass(cls):
        cls.browser = cls.enterClassContext(Browser())

    def setUp(self):
        self.browser.resize(1280, 800)
        self.browser.prefer(prefers_color_scheme='light', prefers_reduced_motion='reduce')
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.file = self.folder / 'tree.dot'
        self.server = None

    def tearDown(self):
        self.browser.visit('about:blank')
        self.end()

    def end(self):
        if not self.server:
            return
        self.server.send_signal(signal.SIGINT)
        self.server.wait(10)
        self.server.stdout.close()
        self.server = None

    def start(self, *arguments):
        """Starts the server and opens what it serves."""
        self.server = subprocess.Popen([SETTINGS.orr, 'serve', '--port', '0', *arguments], cwd=self.folder,
                                       stdout=subprocess.PIPE, text=True)
        self.address = re.search(r'http://\S+', self.server.stdout.readline()).group()
        self.browser.visit(self.address)

    def serve(self, text, engine='gftree'):
        """Serves a file with this text, and waits until it is drawn."""
        self.file.write_text(text, 'utf-8')
        self.start('-K', engine, self.file.name)
        self.assertTrue(self.waits("return document.querySelector('iframe:not(.coming)') !== null;"))
        self.assertTrue(self.waits('return document.getElementById("text").value === arguments[0];', text))

    def waits(self, condition, *arguments, seconds=15):
        return self.browser.wait(condition, *arguments, seconds=seconds)

    def console(self):
        return self.browser.console()

    def shows(self, label):
        """Waits until the drawing has a text with these words."""
        return self.waits(PAGE + '''return [...page?.querySelectorAll('#drawing text') ?? []]
            .some(text => text.textContent.includes(arguments[0]));''', label)

    def says(self, selector, words):
        return self.waits('''const element = document.querySelector(arguments[0]);
            return element.checkVisibility() && element.innerText.includes(arguments[1]);''', selector, words)

    def is_gone(self, selector):
        return self.waits('return !document.querySelector(arguments[0])?.checkVisibility();', selector)

    def fill(self, text):
        """Types another text in the place of that of the editor."""
        self.browser.run("const area = document.getElementById('text'); area.focus(); area.select();")
        self.browser.command('Input.insertText', text=text)

    def text(self):
        return self.browser.run("return document.getElementById('text').value;")

    def file_text(self):
        return self.file.read_bytes().decode('utf-8')

    def choose(self, menu, entry):
        """Opens a menu and presses the entry that begins so."""
        self.browser.run('''document.getElementById(`${arguments[0]}-button`).click();
            [...document.querySelectorAll(`#${arguments[0]} button`)].find(button =>
                button.textContent.startsWith(arguments[1])).click();''', menu, entry)

    def click(self, selector):
        self.browser.run('document.querySelector(arguments[0]).click();', selector)

    def choose_download(self, format):
        """Chooses the format that begins so, and presses the button beside it."""
        self.browser.run('''const menu = document.getElementById('format');
            menu.value = [...menu.options].find(option => option.textContent.startsWith(arguments[0])).value;
            document.getElementById('download').click();''', format)

    def press_button(self, selector, name):
        self.browser.run('''[...document.querySelectorAll(`${arguments[0]} button`)].find(button =>
            button.textContent === arguments[1]).click();''', selector, name)

    def choose_engine(self, engine):
        self.browser.run('''const menu = document.getElementById('engine');
            menu.value = arguments[0]; menu.dispatchEvent(new Event('change'));''', engine)

    def drawn_as(self, engine):
        return self.waits(PAGE + '''return page?.getElementById('page-data')?.textContent
            .includes(`"engine":"${arguments[0]}"`);''', engine)

    def hold_control_and(self, key):
        for kind in ('rawKeyDown', 'keyUp'):
            self.browser.command('Input.dispatchKeyEvent', type=kind, key=key, code=f'Key{key.upper()}', modifiers=2,
                                 windowsVirtualKeyCode=ord(key.upper()))


class Opening(ServeCase):

    def test_shows_the_file_its_drawing_and_nothing_in_the_console(self):
        self.serve(graph('alpha', 'beta'))
        self.assertTrue(self.shows('alpha'))
        self.assertEqual(self.browser.text('#file'), 'tree.dot')
        self.assertEqual(self.browser.run("return document.getElementById('engine').value;"), 'gftree')
        self.assertEqual(self.browser.text('#finding-count'), 'none')
        self.assertEqual(self.console(), [])

    def test_without_a_file_one_begins_with_an_example(self):
        self.start()
        self.assertTrue(self.says('#fault', 'example'))
        self.assertEqual(self.browser.text('#save'), '')
        self.choose('examples', 'umlseq')
        self.assertTrue(self.drawn_as('umlseq'))
        self.assertTrue(self.is_gone('#fault'))
        self.assertEqual(self.console(), [])

    def test_texts_of_the_input_stay_texts(self):
        hostile = '</script><img src=x onerror=hurt()><!--'
        self.file = self.folder / '<img src=x onerror=hurt()>.dot'
        self.serve(graph('alpha', hostile))
        self.fill(graph('alpha', hostile).replace('label', f'"{hostile}"', 1))
        self.assertTrue(self.says('#finding-list', '<img'))
        self.assertEqual(self.browser.count('img, object, embed, base, form'), 0)
        self.assertEqual(self.browser.count('script'), 1)
        self.assertIn('<img', self.browser.text('#file'))
        self.assertEqual(self.console(), [])

    def test_the_file_keeps_its_line_ends(self):
        text = graph('alpha', 'beta').replace('\n', '\r\n')
        self.file.write_bytes(text.encode())
        self.start('-K', 'gftree', self.file.name)
        self.assertTrue(self.shows('alpha'))
        self.fill(self.text().replace('alpha', 'gamma'))
        self.assertTrue(self.shows('gamma'))
        self.hold_control_and('s')
        self.assertTrue(self.says('#told', 'Saved'))
        self.assertEqual(self.file_text(), text.replace('alpha', 'gamma'))

    def test_a_text_that_is_no_unicode_is_not_edited(self):
        self.file.write_bytes(b'digraph { n [label="\xff"]; }')
        self.start('-K', 'gftree', self.file.name)
        self.assertTrue(self.waits("return document.getElementById('text').readOnly;"))


class Editing(ServeCase):

    def test_what_is_typed_is_drawn_and_the_focus_stays(self):
        self.serve(graph('alpha', 'beta'))
        self.fill(graph('gamma', 'beta'))
        self.assertTrue(self.shows('gamma'))
        self.assertEqual(self.browser.run('return document.activeElement.id;'), 'text')
        self.assertEqual(self.browser.count('iframe'), 1)
        self.assertEqual(self.file_text(), graph('alpha', 'beta'))

    def test_requests_go_one_after_the_other_and_the_last_text_wins(self):
        self.serve(graph('alpha'))
        self.browser.run('''const given = window.fetch; window.posts = {now: 0, most: 0, all: 0};
            window.fetch = (path, options) => {
                if (options?.method !== 'POST') return given(path, options);
                posts.most = Math.max(posts.most, ++posts.now); ++posts.all;
                return new Promise(done => setTimeout(done, 1000)).then(() => given(path, options))
                    .finally(() => --posts.now);
            };''')
        for i in range(12):
            self.fill(graph(f'typed{i}'))
            time.sleep(0.2 if i % 3 == 2 else 0.02)
        self.assertTrue(self.shows('typed11'))
        posts = self.browser.run('return window.posts;')
        self.assertEqual(posts['most'], 1)
        self.assertLess(posts['all'], 12)

    def test_an_empty_text_leaves_the_drawing_and_is_told(self):
        self.serve(graph('alpha'))
        self.fill('\n')
        self.assertTrue(self.says('#fault', 'nothing to draw'))
        self.assertTrue(self.shows('alpha'))
        self.fill(graph('beta'))
        self.assertTrue(self.shows('beta'))
        self.assertTrue(self.is_gone('#fault'))

    def test_undo_leads_back_over_what_came_from_outside(self):
        self.serve(graph('alpha', 'beta'))
        self.file.write_text(graph('alpha', 'gamma', 'delta'), 'utf-8')
        self.assertTrue(self.shows('delta'))
        self.undo()
        self.assertEqual(self.text(), graph('alpha', 'beta'))
        self.assertTrue(self.shows('beta'))
        self.assertTrue(self.says('#unsaved', 'not saved'))
        self.hold_control_and('y')
        self.assertEqual(self.text(), graph('alpha', 'gamma', 'delta'))

    def undo(self):
        self.browser.run("document.getElementById('text').focus();")
        self.hold_control_and('z')

    def test_undo_leads_back_over_texts_of_any_size(self):
        long = graph(*(f'label {i}' for i in range(3000)))
        self.serve(graph('alpha'))
        self.file.write_text(long, 'utf-8')
        self.assertTrue(self.waits('return document.getElementById("text").value === arguments[0];', long))
        self.fill(graph('typed'))
        self.choose('examples', 'treemap')
        self.assertTrue(self.drawn_as('treemap'))
        example = self.text()
        for text in (graph('typed'), long, graph('alpha'), graph('alpha')):
            self.click('#undo')
            self.assertEqual(self.text(), text)
        self.assertTrue(self.drawn_as('gftree'))
        self.assertTrue(self.shows('alpha'))
        self.assertEqual(self.browser.count('#undo[aria-disabled=true]'), 1)
        for text in (long, graph('typed'), example, example):
            self.click('#redo')
            self.assertEqual(self.text(), text)
        self.assertEqual(self.browser.count('#redo[aria-disabled=true]'), 1)
        self.assertTrue(self.drawn_as('treemap'))
        self.assertEqual(self.browser.run("return document.getElementById('engine').value;"), 'treemap')

    def test_what_is_typed_without_a_pause_is_one_step(self):
        self.serve(graph('alpha'))
        self.browser.run("const area = document.getElementById('text'); area.focus(); area.setSelectionRange(0, 0);")
        self.browser.type('// one')
        time.sleep(1.2)
        self.browser.type(' two')
        self.undo()
        self.assertEqual(self.text(), '// one' + graph('alpha'))
        self.undo()
        self.assertEqual(self.text(), graph('alpha'))
        self.browser.type('new')
        self.hold_control_and('y')
        self.assertEqual(self.text(), 'new' + graph('alpha'))

    def test_line_ends_come_back_with_their_text(self):
        unix = graph('alpha', 'beta')
        self.serve(unix)
        self.file.write_bytes(graph('alpha', 'gamma').replace('\n', '\r\n').encode())
        self.assertTrue(self.shows('gamma'))
        self.undo()
        self.assertTrue(self.shows('beta'))
        self.hold_control_and('s')
        self.assertTrue(self.says('#told', 'Saved'))
        self.assertEqual(self.file.read_bytes(), unix.encode())

    def test_a_text_comes_back_from_behind_an_example(self):
        self.serve(graph('alpha'))
        self.choose('examples', 'treemap')
        self.assertTrue(self.drawn_as('treemap'))
        self.press_button('#told', 'Bring the text back')
        self.assertTrue(self.shows('alpha'))
        self.assertEqual(self.text(), graph('alpha'))
        self.assertEqual(self.browser.run("return document.getElementById('engine').value;"), 'gftree')
        self.assertTrue(self.is_gone('#told'))

    def test_the_first_text_is_not_undone(self):
        self.serve(graph('alpha'))
        self.undo()
        self.assertEqual(self.text(), graph('alpha'))

    def test_lines_have_their_numbers(self):
        self.serve(graph(*(f'label {i}' for i in range(200))))
        numbers = "return [...document.querySelectorAll('#numbers div div')].map(one => Number(one.textContent));"
        self.assertTrue(self.waits("return document.querySelector('#numbers div div')?.textContent === '1';"))
        self.assertLess(len(self.browser.run(numbers)), 100)
        self.browser.run("const area = document.getElementById('text'); area.scrollTop = area.scrollHeight;")
        last = len(graph(*range(200)).split('\n'))
        self.assertTrue(self.waits("return document.querySelector('#numbers div div:last-child').textContent === arguments[0];",
                                   str(last)))
        lower = self.browser.run('''const area = document.getElementById('text');
            return area.getBoundingClientRect().top + area.scrollHeight - area.scrollTop;''')
        self.assertAlmostEqual(self.browser.box('#numbers div div:last-child')[3], lower, delta=1)

    def test_tab_leaves_the_editor(self):
        self.serve(graph('alpha'))
        self.browser.run("document.getElementById('text').focus();")
        self.browser.press('Tab')
        self.assertNotEqual(self.browser.run('return document.activeElement.id;'), 'text')
        self.assertEqual(self.text(), graph('alpha'))


class Findings(ServeCase):

    BROKEN = 'digraph {\n' + '\n' * 150 + '    a [label="alpha" b;\n' + '\n' * 150 + '}\n'
    SELECTED = '''const {value, selectionStart, selectionEnd} = document.getElementById('text');
        return value.slice(selectionStart, selectionEnd);'''

    def test_an_error_is_shown_and_the_drawing_stays(self):
        self.serve(graph('alpha'))
        self.fill(self.BROKEN)
        self.assertTrue(self.says('#fault', 'last text that could be drawn'))
        self.assertTrue(self.shows('alpha'))
        self.assertTrue(self.says('#finding-list', '152:'))
        self.assertRegex(self.browser.text('#finding-count'), '^[1-9][0-9]* error')
        self.fill(graph('gamma'))
        self.assertTrue(self.shows('gamma'))
        self.assertTrue(self.is_gone('#fault'))
        self.assertTrue(self.says('#finding-count', 'none'))

    def test_a_click_or_enter_selects_the_line(self):
        self.serve(graph('alpha'))
        self.fill(self.BROKEN)
        self.assertTrue(self.waits("return document.querySelector('#finding-list button') !== null;"))
        for press in ("document.querySelector('#finding-list button').click();",
                      "document.querySelector('#finding-list button').focus();"):
            self.browser.run("const area = document.getElementById('text'); area.setSelectionRange(0, 0); area.scrollTop = 0;")
            self.browser.run(press)
            if 'focus' in press:
                self.browser.press('Enter')
            self.assertIn('label="alpha" b', self.browser.run(self.SELECTED))
            self.assertNotIn('\n', self.browser.run(self.SELECTED))
            self.assertEqual(self.browser.run('return document.activeElement.id;'), 'text')
            self.assertTrue(self.waits("return document.querySelector('#numbers .error')?.textContent === '152';"))
            upper, lower = self.browser.box('#numbers .error')[1::2]
            self.assertGreater(upper, self.browser.box('#text')[1])
            self.assertLess(lower, self.browser.box('#text')[3])

    def test_a_suggestion_stands_below(self):
        self.serve(graph('alpha', 'beta').replace('label', 'lable', 1))
        self.assertTrue(self.says('#finding-list .warning', '2:'))
        self.assertTrue(self.says('#finding-list .suggestion', 'label'))


class Redrawing(ServeCase):

    PLACE = PAGE + "return page.defaultView.location.hash;"
    ON_SCREEN = PAGE + '''const box = page.querySelector('#drawing g[data-id="n1"]').getBoundingClientRect();
        return [box.left, box.top, box.right, box.bottom];'''

    def test_keeps_the_view_and_the_chosen_object(self):
        self.serve(graph('alpha', 'beta', 'gamma'))
        self.assertTrue(self.shows('beta'))
        left, upper = self.browser.box('iframe')[:2]
        box = self.browser.run(self.ON_SCREEN)
        middle = (left + (box[0] + box[2]) / 2, upper + (box[1] + box[3]) / 2)
        self.browser.wheel(*middle, -300)
        self.browser.click(*middle)
        self.assertTrue(self.waits(PAGE + "return /view=.*chosen=/.test(page.defaultView.location.hash);"))
        place = self.browser.run(self.PLACE)
        before = self.browser.run(self.ON_SCREEN)
        self.fill(graph('alpha', 'beta', 'delta'))
        self.assertTrue(self.shows('delta'))
        self.assertEqual(self.browser.run(self.PLACE), place)
        for was, now in zip(before, self.browser.run(self.ON_SCREEN)):
            self.assertAlmostEqual(was, now, delta=1)
        self.assertIn('beta', self.browser.run(PAGE + "return page.querySelector('#panel.held').innerText;"))

    def test_keeps_the_light_of_a_legend(self):
        text = (pathlib.Path(SETTINGS.examples) / 'treemap/own_source.dot').read_text('utf-8')
        self.serve(text, 'treemap')
        lit = PAGE + '''return page?.querySelector('#drawing.dimmed') !== null
            && page.querySelectorAll('#lit g[data-kind]').length > 3;'''
        self.browser.run(PAGE + '''page.querySelector('#drawing [aria-pressed]')
            .dispatchEvent(new MouseEvent('click', {bubbles: true, detail: 1}));''')
        self.assertTrue(self.waits(lit))
        self.assertTrue(self.waits(PAGE + "return /color=/.test(page.defaultView.location.hash);"))
        self.fill(text.replace('label="device"', 'label="anew"', 1))
        self.assertTrue(self.shows('anew'))
        self.assertTrue(self.browser.run(lit))

    def test_there_is_a_drawing_at_all_times(self):
        self.serve(graph('alpha'))
        self.browser.run('''window.seen = {frames: 0, without: 0};
            const look = () => { ++seen.frames;
                const shown = document.querySelector('iframe:not(.coming)');
                if (!shown?.contentDocument?.querySelector('#drawing text')) ++seen.without;
                requestAnimationFrame(look); };
            look();''')
        for i in range(3):
            self.fill(graph(f'typed{i}'))
            self.assertTrue(self.shows(f'typed{i}'))
        seen = self.browser.run('return window.seen;')
        self.assertGreater(seen['frames'], 3)
        self.assertEqual(seen['without'], 0)

    def test_a_shell_that_is_loaded_again_shows_the_same_place(self):
        self.serve(graph('alpha'))
        self.browser.run(PAGE + "page.defaultView.location.hash = '#view=10.0,10.0,3.500';")
        self.browser.run('location.reload();')
        self.assertTrue(self.shows('alpha'))
        self.assertEqual(self.browser.run(self.PLACE), '#view=10.0%2C10.0%2C3.500')

    def test_leaves_no_trace_in_the_history(self):
        self.serve(graph('alpha'))
        length = self.browser.run('return history.length;')
        self.fill(graph('beta'))
        self.assertTrue(self.shows('beta'))
        self.browser.run("document.getElementById('theme').click();")
        self.assertEqual(self.browser.run('return history.length;'), length)

    def test_another_engine_draws_anew(self):
        self.serve('digraph {\n    a [area=3 label="alpha"];\n    b [area=4 label="beta"];\n}\n', 'treemap')
        self.assertTrue(self.drawn_as('treemap'))
        self.choose_engine('sunburst')
        self.assertTrue(self.drawn_as('sunburst'))
        self.assertEqual(self.browser.run("return document.getElementById('engine').value;"), 'sunburst')


class Files(ServeCase):

    def test_a_change_outside_is_taken(self):
        self.serve(graph('alpha', 'beta'))
        self.file.write_text(graph('alpha', 'gamma'), 'utf-8')
        self.assertTrue(self.shows('gamma'))
        self.assertTrue(self.waits("return document.getElementById('text').value === arguments[0];", graph('alpha', 'gamma')))
        self.assertEqual(self.browser.text('#conflict'), '')

    def conflict(self):
        self.serve(graph('alpha'))
        self.fill(graph('mine'))
        self.assertTrue(self.shows('mine'))
        self.file.write_text(graph('theirs'), 'utf-8')
        self.assertTrue(self.says('#conflict', 'changed outside'))
        self.assertEqual(self.text(), graph('mine'))

    def test_a_conflict_can_be_given_in_to(self):
        self.conflict()
        self.press_button('#conflict', 'Take the file’s text')
        self.assertTrue(self.shows('theirs'))
        self.assertTrue(self.waits("return document.getElementById('text').value === arguments[0];", graph('theirs')))
        self.assertTrue(self.is_gone('#conflict'))

    def test_what_gave_way_to_the_file_comes_back_however_long_it_is(self):
        mine = graph('mine', *(f'label {i}' for i in range(100)))
        self.serve(graph('alpha'))
        self.fill(mine)
        self.assertTrue(self.shows('mine'))
        self.file.write_text(graph('theirs', *(f'other {i}' for i in range(100))), 'utf-8')
        self.assertTrue(self.says('#conflict', 'changed outside'))
        self.press_button('#conflict', 'Take the file’s text')
        self.assertTrue(self.shows('theirs'))
        self.assertTrue(self.says('#told', 'replaced what was typed'))
        self.press_button('#told', 'Bring the text back')
        self.assertEqual(self.text(), mine)
        self.assertTrue(self.shows('mine'))
        self.assertTrue(self.is_gone('#told'))
        self.assertTrue(self.says('#unsaved', 'not saved'))

    def test_a_conflict_can_be_won_but_not_by_accident(self):
        self.conflict()
        self.press_button('#conflict', 'Keep mine')
        self.assertTrue(self.is_gone('#conflict'))
        self.browser.run("document.getElementById('save').click();")
        self.assertTrue(self.says('#conflict', 'Save over it'))
        self.assertEqual(self.file_text(), graph('theirs'))
        self.press_button('#conflict', 'Save over it')
        self.assertTrue(self.says('#told', 'Saved'))
        self.assertEqual(self.file_text(), graph('mine'))
        self.assertTrue(self.is_gone('#conflict'))

    def test_saves_on_request(self):
        leaves = "return dispatchEvent(new Event('beforeunload', {cancelable: true}));"
        self.serve(graph('alpha'))
        self.assertTrue(self.browser.run(leaves))
        self.fill(graph('beta'))
        self.assertTrue(self.says('#unsaved', 'not saved'))
        self.assertFalse(self.browser.run(leaves))
        self.browser.run("document.getElementById('save').click();")
        self.assertTrue(self.says('#told', 'Saved'))
        self.assertEqual(self.file_text(), graph('beta'))
        self.assertTrue(self.is_gone('#unsaved'))
        self.assertTrue(self.browser.run(leaves))

    def test_saves_what_was_typed_last(self):
        self.serve(graph('alpha'))
        self.fill(graph('beta'))
        self.hold_control_and('s')
        self.assertTrue(self.says('#told', 'Saved'))
        self.assertEqual(self.file_text(), graph('beta'))

    def test_a_text_that_is_refused_is_never_taken_for_saved(self):
        self.serve(graph('alpha'))
        self.browser.run('''const area = document.getElementById('text');
            area.value = `${'/'.repeat(98)}\\n`.repeat(175_000) + area.value; area.dispatchEvent(new Event('input'));''')
        self.assertTrue(self.says('#told', 'too large'))
        self.hold_control_and('s')
        self.assertTrue(self.says('#told', 'Not saved'))
        self.assertTrue(self.says('#unsaved', 'not saved'))
        self.assertEqual(self.file_text(), graph('alpha'))
        self.fill(graph('beta'))
        self.assertTrue(self.shows('beta'))
        self.hold_control_and('s')
        self.assertTrue(self.says('#told', 'Saved'))

    def download(self, name, ending):
        """The bytes of what an entry of the menu downloads, of which there is none yet."""
        downloads = self.folder / 'downloads'
        downloads.mkdir(exist_ok=True)
        self.browser.command('Browser.setDownloadBehavior', behavior='allow', downloadPath=str(downloads))
        self.choose_download(name)
        file = downloads / f'tree.{ending}'
        end = time.monotonic() + 15
        while not file.exists() and time.monotonic() < end:
            time.sleep(0.05)
        return file.read_bytes()

    def test_downloads_all_formats(self):
        self.serve(graph('alpha'))
        for name, ending in FORMATS.items():
            with self.subTest(name):
                self.assertTrue(self.download(name, ending).startswith(STARTS[ending]))

    def test_downloads_the_page_of_what_was_just_typed(self):
        self.serve(graph('alpha'))
        self.assertTrue(self.shows('alpha'))
        self.fill(graph('gamma'))
        page = self.download('Page', 'html')
        self.assertTrue(page.startswith(b'<!DOCTYPE html>'))
        self.assertIn(b'gamma', page)
        self.assertNotIn(b'alpha', page)

    def test_a_page_that_can_not_be_drawn_is_no_download(self):
        self.serve(graph('alpha'))
        self.assertTrue(self.shows('alpha'))
        for text, told in (('digraph { a [', 'Unable to parse'), ('\n', 'nothing to draw')):
            with self.subTest(told):
                self.fill(text)
                self.choose_download('Page')
                self.assertTrue(self.says('#told', told))
                self.press_button('#told', 'Dismiss')
        self.assertEqual(list(self.folder.glob('**/*.html')), [])

    def test_a_download_that_fails_is_told(self):
        self.serve(graph('alpha'))
        self.fill('digraph { a [')
        self.choose_download('SVG')
        self.assertTrue(self.says('#told', 'Dismiss'))
        self.press_button('#told', 'Dismiss')
        self.assertTrue(self.is_gone('#told'))


class Examples(ServeCase):

    def test_each_engine_has_one(self):
        self.start()
        self.assertTrue(self.waits("return document.querySelectorAll('#examples li').length === arguments[0];", len(ENGINES)))
        for engine in ENGINES:
            with self.subTest(engine):
                self.choose('examples', engine)
                self.assertTrue(self.drawn_as(engine))
                self.assertEqual(self.browser.run("return document.getElementById('engine').value;"), engine)
        self.assertEqual(self.console(), [])


class Trouble(ServeCase):

    def workers(self):
        """The processes that draw and check for the server."""
        listed = subprocess.run(['ps', '-eo', 'pid=,ppid=,args='], capture_output=True, text=True).stdout
        processes = [(int(pid), int(parent), args) for pid, parent, args in
                     (line.split(None, 2) for line in listed.splitlines())]
        ours = {self.server.pid}
        ours |= {pid for pid, parent, _ in processes if parent in ours}
        return [pid for pid, parent, args in processes if parent in ours and '--as-worker' in args]

    def test_a_killed_worker_costs_a_message(self):
        self.serve(graph('alpha'))
        self.file.write_text('digraph {' + ''.join(f'n{i} [area={i + 1}];' for i in range(200_000)) + '}')
        self.choose_engine('flatbubble')
        end = time.monotonic() + 15
        while self.browser.text('#fault') == '' and time.monotonic() < end:
            for worker in self.workers():
                os.kill(worker, signal.SIGKILL)
            time.sleep(0.1)
        self.assertIn('signal 9', self.browser.text('#fault'))
        self.assertTrue(self.shows('alpha'))
        self.fill('digraph {\n    a [area=3 label="gamma"];\n}\n')
        self.assertTrue(self.shows('gamma'))
        self.assertTrue(self.is_gone('#fault'))

    def test_a_server_that_has_ended_is_told(self):
        self.serve(graph('alpha'))
        self.end()
        self.assertTrue(self.says('#lost', 'ended'))
        self.fill(graph('beta'))
        time.sleep(0.5)
        self.assertEqual(self.text(), graph('beta'))
        self.assertTrue(self.shows('alpha'))

    def test_a_connection_that_is_back_sends_what_was_typed(self):
        self.serve(graph('alpha'))
        self.browser.command('Network.enable')
        switch = {'latency': 0, 'downloadThroughput': -1, 'uploadThroughput': -1}
        self.browser.command('Network.emulateNetworkConditions', offline=True, **switch)
        self.addCleanup(self.browser.command, 'Network.emulateNetworkConditions', offline=False, **switch)
        self.fill(graph('beta'))
        self.file.touch()
        self.assertTrue(self.waits("return document.getElementById('lost').checkVisibility();", seconds=30))
        self.browser.command('Network.emulateNetworkConditions', offline=False, **switch)
        self.press_button('#lost', 'Try now')
        self.assertTrue(self.shows('beta'))
        self.assertTrue(self.is_gone('#lost'))


class Looks(ServeCase):

    TEXT = 'digraph {\n    a [lable="alpha"];\n    b [label="beta"];\n    a -> b;\n}\n'

    def test_axe_has_no_violation(self):
        if not IN_CI and not pathlib.Path(SETTINGS.axe or 'none').exists():
            self.skipTest('there is no axe-core')
        self.serve(self.TEXT)
        self.assertTrue(self.says('#finding-list', 'did you mean'))
        for scheme in ('light', 'dark'):
            self.browser.prefer(prefers_color_scheme=scheme, prefers_reduced_motion='reduce')
            self.assertEqual(self.browser.audit(SETTINGS.axe), [], scheme)
        self.fill('digraph { a [')
        self.assertTrue(self.says('#fault', 'last text'))
        self.file.write_text(graph('other'), 'utf-8')
        self.assertTrue(self.says('#conflict', 'changed outside'))
        for scheme in ('light', 'dark'):
            self.browser.prefer(prefers_color_scheme=scheme, prefers_reduced_motion='reduce')
            self.assertEqual(self.browser.audit(SETTINGS.axe), [], f'{scheme} with notices')
        self.browser.run("document.getElementById('examples-button').click();")
        self.assertEqual(self.browser.audit(SETTINGS.axe), [], 'with a menu')

    def test_dark_is_that_of_the_system_until_the_switch_is_used(self):
        dark = 'return document.documentElement.dataset.theme;'
        self.browser.prefer(prefers_color_scheme='dark')
        self.serve(graph('alpha'))
        inner = PAGE + 'return page.documentElement.dataset.theme;'
        self.assertEqual([self.browser.run(dark), self.browser.run(inner)], ['dark', 'dark'])
        self.browser.run("document.getElementById('theme').click();")
        self.assertTrue(self.waits(inner.replace('theme;', "theme === 'light';")))
        self.assertEqual(self.browser.run(dark), 'light')
        self.fill(graph('beta'))
        self.assertTrue(self.shows('beta'))
        self.assertEqual(self.browser.run(inner), 'light')
        self.browser.run("localStorage.clear();")

    def test_the_splitter_moves_by_keys_and_pointer(self):
        self.serve(graph('alpha'))
        width = lambda: self.browser.box('#pane')[2]
        before = width()
        self.browser.run("document.getElementById('splitter').focus();")
        self.browser.press('ArrowRight', 'ArrowRight')
        self.assertAlmostEqual(width(), before + 0.04 * 1280, delta=2)
        self.browser.press('Home')
        self.assertAlmostEqual(width(), 0.15 * 1280, delta=2)
        self.assertEqual(self.browser.run("return document.getElementById('splitter').getAttribute('aria-valuenow');"), '15')
        left, _, right, _ = self.browser.box('#splitter')
        self.browser.drag(((left + right) / 2, 400), (800, 420))
        self.assertAlmostEqual(width(), 800, delta=8)

    def test_prints_the_drawing_alone_on_one_page(self):
        labels = [f'label{i}' for i in range(60)]
        self.serve(graph(*labels))
        self.assertEqual(self.browser.pages_when_printed(), 1)
        if shutil.which('pdftotext'):
            printed = self.browser.printed_text()
            self.assertEqual([label for label in labels if label not in printed], [])
            for word in ('Engine', 'Findings', 'digraph', 'Search'):
                self.assertNotIn(word, printed)
        self.browser.prefer(media='print')
        fits = self.browser.run(PAGE + """
            const box = page.getElementById('drawing').getBoundingClientRect();
            return box.width > 50 && box.right <= page.defaultView.innerWidth && box.bottom <= page.defaultView.innerHeight;""")
        self.assertTrue(fits)

    def test_parts_do_not_overlap(self):
        self.serve(self.TEXT)
        self.assertTrue(self.says('#finding-list', 'did you mean'))
        for width, height in ((1280, 800), (390, 844)):
            self.browser.resize(width, height)
            bar, text, findings, splitter, stage = map(self.browser.box, ('#bar', '#text', '#findings', '#splitter', '#stage'))
            self.assertLessEqual(bar[3], text[1] + 0.5)
            self.assertLessEqual(text[3], findings[1] + 0.5)
            self.assertTrue(stage[0] >= splitter[2] - 0.5 if width > 800 else stage[1] >= splitter[3] - 0.5)
            self.assertGreater((stage[2] - stage[0]) * (stage[3] - stage[1]), 0.35 * width * height)
            self.assertGreater(text[3] - text[1], 100)
            outside = self.browser.run('''return [...document.querySelectorAll('#bar button, #bar select')]
                .filter(one => one.checkVisibility()).filter(one => { const box = one.getBoundingClientRect();
                    return box.left < 0 || box.right > innerWidth; }).map(one => one.id);''')
            self.assertEqual(outside, [])

    def test_tab_reaches_everything(self):
        self.serve(self.TEXT)
        self.assertTrue(self.says('#finding-list', 'did you mean'))
        reached = set()
        self.browser.run("document.getElementById('engine').focus();")
        for _ in range(12):
            reached.add(self.browser.run("const {id, localName} = document.activeElement; return id || localName;"))
            self.browser.press('Tab')
        self.assertLessEqual({'engine', 'examples-button', 'undo', 'redo', 'format', 'download', 'theme', 'text', 'button', 'splitter', 'iframe'},
                             reached)

    def test_one_key_leads_from_pane_to_pane(self):
        self.serve(self.TEXT)
        self.assertTrue(self.says('#finding-list', 'did you mean'))
        reached = []
        for key in ('F6', 'F6', 'F6', 'F6', 'Shift+F6'):
            self.browser.press(key)
            reached.append(self.browser.run("const {id, localName} = document.activeElement; return id || localName;"))
        self.assertEqual(reached, ['text', 'button', 'iframe', 'engine', 'iframe'])

    def test_pictures(self):
        if not SETTINGS.pictures:
            self.skipTest('no pictures were asked for')
        folder = pathlib.Path(SETTINGS.pictures)
        folder.mkdir(exist_ok=True)
        text = (pathlib.Path(SETTINGS.examples) / 'treemap/own_source.dot').read_text('utf-8')
        self.file = self.folder / 'source.dot'
        sizes = {'light': (1200, 680), 'dark': (1200, 680), 'narrow': (390, 844)}
        self.serve(text.replace('n1 [label=', 'n1 [lable='), 'treemap')
        self.assertTrue(self.says('#finding-list', 'did you mean'))
        self.browser.run("document.querySelector('#finding-list button').click();")
        for name, size in sizes.items():
            self.browser.resize(*size)
            self.browser.prefer(prefers_color_scheme='dark' if name == 'dark' else 'light')
            time.sleep(0.3)
            picture = folder / f'serve-{name}.png'
            self.browser.screenshot(picture)
            self.assertGreater(picture.stat().st_size, 1000)
            if name != 'narrow':
                self.assertLess(self.browser.unlikeness(picture, KEPT_PICTURES / picture.name), MOST_UNLIKE, picture)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('orr', help='the program', type=os.path.abspath)
    parser.add_argument('examples', help="folder of the project's examples")
    parser.add_argument('--axe', help='axe.min.js of axe-core')
    parser.add_argument('--pictures', help='folder that gets screenshots, light, dark and narrow')
    _, rest = parser.parse_known_args(namespace=SETTINGS)
    missing = missing_programs()
    if missing:
        print('no browser: there is no ' + ' and no '.join(missing), file=sys.stderr)
        sys.exit(1 if IN_CI else NOT_HERE)
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == '__main__':
    main()
