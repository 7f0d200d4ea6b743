"""A headless Chromium that opens a page and tells what is in it.

It speaks the WebDriver protocol to Debian's `chromedriver` by itself, since no more than ten commands
of it are needed.
"""

import base64
import json
import pathlib
import re
import shutil
import subprocess
import urllib.error
import urllib.request

# What a key is called in the protocol.
KEYS = {
    'Enter': '\ue007', 'Escape': '\ue00c', 'Tab': '\ue004', 'Backspace': '\ue003', 'Shift': '\ue008',
    'ArrowLeft': '\ue012', 'ArrowUp': '\ue013', 'ArrowRight': '\ue014', 'ArrowDown': '\ue015',
    'Home': '\ue011', 'F6': '\ue036', 'End': '\ue010', 'PageDown': '\ue00f', 'PageUp': '\ue00e', ' ': ' ',
}


KEPT_PICTURES = pathlib.Path(__file__).resolve().parents[2] / 'docs/pictures'
# The part of a picture that may differ from the kept one: by letters of another version, not by a part of the page.
MOST_UNLIKE = 0.015


class BrowserError(Exception):
    """What the driver said of a command that failed."""


def missing_programs():
    """The programs that a browser needs and that are not there."""
    return [name for name in ('chromium', 'chromedriver') if not shutil.which(name)]


class Browser:
    """One session, to be used in a `with`; all sizes are in CSS pixels."""

    def __init__(self, width=1280, height=800):
        self.size = (width, height)

    def __enter__(self):
        self.driver = subprocess.Popen(['chromedriver', '--port=0'], stdout=subprocess.PIPE, text=True)
        try:
            self.root = f'http://127.0.0.1:{self._port()}'
            options = {'args': ['--headless=new', '--no-sandbox', '--disable-dev-shm-usage',
                                '--disable-gpu', '--hide-scrollbars', '--force-device-scale-factor=1']}
            wanted = {'browserName': 'chrome', 'goog:chromeOptions': options,
                      'goog:loggingPrefs': {'browser': 'ALL'}}
            answer = self._send('POST', '/session', {'capabilities': {'alwaysMatch': wanted}})
            self.root += '/session/' + answer['sessionId']
            self.resize(*self.size)
        except BaseException:
            self._stop()
            raise
        return self

    def __exit__(self, *_):
        try:
            self._send('DELETE', '')
        finally:
            self._stop()

    def _stop(self):
        self.driver.terminate()
        self.driver.wait()

    def _port(self):
        for line in self.driver.stdout:
            found = re.search(r'started successfully on port (\d+)', line)
            if found:
                return found.group(1)
        raise BrowserError('chromedriver did not start')

    def _send(self, method, path, body=None):
        data = None if body is None else json.dumps(body).encode()
        request = urllib.request.Request(self.root + path, data, {'Content-Type': 'application/json'},
                                         method=method)
        try:
            with urllib.request.urlopen(request, timeout=120) as answer:
                return json.load(answer)['value']
        except urllib.error.HTTPError as error:
            raise BrowserError(json.load(error)['value']['message']) from None

    def command(self, name, **parameters):
        """A command of the browser's own protocol."""
        return self._send('POST', '/goog/cdp/execute', {'cmd': name, 'params': parameters})

    def resize(self, width, height):
        self.size = (width, height)
        self.command('Emulation.setDeviceMetricsOverride', width=width, height=height,
                     deviceScaleFactor=1, mobile=False)

    def prefer(self, **features):
        """Media features, such as `prefers_color_scheme='dark'`, and `media='print'`."""
        media = features.pop('media', '')
        listed = [{'name': name.replace('_', '-'), 'value': value} for name, value in features.items()]
        self.command('Emulation.setEmulatedMedia', media=media, features=listed)

    def open(self, page, fragment=''):
        """Opens a file as a new document, also if it differs from the present one by its fragment only."""
        self.visit(pathlib.Path(page).resolve().as_uri() + fragment)

    def visit(self, address):
        """Opens an address as a new document, with nothing in the console yet."""
        self._send('POST', '/url', {'url': 'about:blank'})
        self.console()
        self._send('POST', '/url', {'url': address})

    def run(self, script, *arguments):
        """The value that a function body returns; a promise is waited for."""
        return self._send('POST', '/execute/sync', {'script': script, 'args': list(arguments)})

    def console(self):
        """What was logged since the last time, errors of the policy included."""
        return [f"{entry['level']} {entry['message']}" for entry in
                self._send('POST', '/se/log', {'type': 'browser'})]

    def press(self, *keys):
        """Keys one after the other; 'Shift+Enter' holds the first one."""
        actions = []
        for key in keys:
            parts = key.split('+') if len(key) > 1 else [key]
            codes = [KEYS.get(part, part) for part in parts]
            actions += [{'type': 'keyDown', 'value': code} for code in codes]
            actions += [{'type': 'keyUp', 'value': code} for code in reversed(codes)]
        self._send('POST', '/actions', {'actions': [{'type': 'key', 'id': 'keys', 'actions': actions}]})

    def type(self, text):
        self.press(*text)

    def _point(self, kind, identity, *actions):
        self._send('POST', '/actions', {'actions': [
            {'type': 'pointer', 'id': identity, 'parameters': {'pointerType': kind},
             'actions': list(actions)}]})

    @staticmethod
    def _move(x, y, duration=0):
        return {'type': 'pointerMove', 'x': round(x), 'y': round(y), 'duration': duration}

    def point(self, x, y):
        self._point('mouse', 'mouse', self._move(x, y))

    def click(self, x, y, times=1):
        press = [{'type': 'pointerDown', 'button': 0}, {'type': 'pointerUp', 'button': 0}]
        self._point('mouse', 'mouse', self._move(x, y), *(press * times))

    def drag(self, start, end):
        self._point('mouse', 'mouse', self._move(*start), {'type': 'pointerDown', 'button': 0},
                    self._move(*end, duration=100), {'type': 'pointerUp', 'button': 0})

    def pinch(self, centre, before, after, moved=(0, 0)):
        """Two fingers side by side whose distance changes, and their middle if it is moved."""
        x, y = centre
        fingers = [{'type': 'pointer', 'id': f'finger{side}', 'parameters': {'pointerType': 'touch'},
                    'actions': [self._move(x + side * before / 2, y), {'type': 'pointerDown', 'button': 0},
                                self._move(x + moved[0] + side * after / 2, y + moved[1], 100),
                                {'type': 'pointerUp', 'button': 0}]} for side in (-1, 1)]
        self._send('POST', '/actions', {'actions': fingers})

    def wheel(self, x, y, delta, across=0):
        self._send('POST', '/actions', {'actions': [{'type': 'wheel', 'id': 'wheel', 'actions': [
            {'type': 'scroll', 'x': round(x), 'y': round(y), 'deltaX': across, 'deltaY': delta,
             'duration': 0}]}]})

    def wheel_with_shift(self, x, y, delta):
        self.command('Input.dispatchMouseEvent', type='mouseWheel', x=x, y=y, deltaX=0, deltaY=delta, modifiers=8)

    def wait(self, condition, *arguments, seconds=5):
        """Whether a function body comes to be true within the time."""
        return self.run('''
            const [body, list, end] = [arguments[0], arguments[1], performance.now() + arguments[2] * 1000];
            const holds = new Function(body);
            return new Promise(done => {
                const look = () => holds(...list) ? done(true)
                    : performance.now() > end ? done(false) : setTimeout(look, 20);
                look();
            });''', condition, list(arguments), seconds)

    def text(self, selector):
        """The text of an element as it is shown; empty if it is hidden."""
        return self.run('''const element = document.querySelector(arguments[0]);
            return element?.checkVisibility() ? element.innerText : '';''', selector)

    def count(self, selector):
        return self.run('return document.querySelectorAll(arguments[0]).length;', selector)

    def box(self, selector):
        """The left, upper, right and lower side of an element on the screen."""
        return self.run('''const box = document.querySelector(arguments[0]).getBoundingClientRect();
            return [box.left, box.top, box.right, box.bottom];''', selector)

    def objects(self, kind=None):
        return self.count('#drawing g[data-kind]' if kind is None else f'#drawing g[data-kind={kind}]')

    def panel(self):
        return self.text('#panel')

    def accessible(self, selector):
        """The role and the name of an element as assistive software has them."""
        root = self.command('DOM.getDocument', depth=0)['root']['nodeId']
        node = self.command('DOM.querySelector', nodeId=root, selector=selector)['nodeId']
        [seen] = self.command('Accessibility.getPartialAXTree', nodeId=node, fetchRelatives=False)['nodes']
        return None if seen['ignored'] else (seen['role']['value'], seen['name']['value'])

    def audit(self, axe):
        """The violations that axe-core finds, given by the path of its `axe.min.js`."""
        # Evaluated by the protocol: the page's own policy lets no other script in.
        self.command('Runtime.evaluate', expression=pathlib.Path(axe).read_text('utf-8'))
        answer = self.command('Runtime.evaluate', awaitPromise=True, returnByValue=True, expression='''
            axe.run(document, {resultTypes: ['violations']}).then(found => found.violations.map(one =>
                one.id + ': ' + one.nodes.slice(0, 3).map(node =>
                    node.target.join(' ') + ' ' + (node.any[0]?.message ?? '')).join('; ')))''')
        return answer['result']['value']

    def screenshot(self, path):
        pathlib.Path(path).write_bytes(base64.b64decode(self._send('GET', '/screenshot')))

    def unlikeness(self, one, other):
        """The share of squares of eight pixels in which two pictures differ; 1 if their sizes do.

        Another version of the browser smooths letters and lines otherwise, which the mean of a square hardly tells.
        """
        pictures = [base64.b64encode(pathlib.Path(path).read_bytes()).decode() for path in (one, other)]
        return self.run('''const side = 8, most = 20;
            const squaresOf = async text => {
                const bytes = Uint8Array.from(atob(text), letter => letter.charCodeAt(0));
                const picture = await createImageBitmap(new Blob([bytes]));
                const canvas = new OffscreenCanvas(picture.width, picture.height);
                const context = canvas.getContext('2d');
                context.drawImage(picture, 0, 0);
                const { data, width, height } = context.getImageData(0, 0, picture.width, picture.height);
                const across = Math.ceil(width / side);
                const sums = new Float64Array(3 * across * Math.ceil(height / side));
                for (let y = 0; y < height; ++y) {
                    for (let x = 0; x < width; ++x) {
                        for (let k = 0; k < 3; ++k)
                            sums[3 * (Math.floor(y / side) * across + Math.floor(x / side)) + k] += data[4 * (y * width + x) + k];
                    }
                }
                return { size: `${width} ${height}`, means: sums.map(sum => sum / side ** 2) };
            };
            return Promise.all([...arguments].map(squaresOf)).then(([a, b]) => {
                if (a.size !== b.size) return 1;
                const count = a.means.length / 3;
                let different = 0;
                for (let i = 0; i < count; ++i)
                    different += [0, 1, 2].some(k => Math.abs(a.means[3 * i + k] - b.means[3 * i + k]) > most);
                return different / count;
            });''', *pictures)

    def pages_when_printed(self):
        """The number of pages of the printout."""
        return len(re.findall(rb'/Type\s*/Page\b', self._printed()))

    def printed_text(self):
        """What can be read on the printout, by poppler's pdftotext."""
        return subprocess.run(['pdftotext', '-', '-'], input=self._printed(), check=True,
                              capture_output=True).stdout.decode()

    def _printed(self):
        return base64.b64decode(self._send('POST', '/print', {}))
