"""Reads a page of standard input as HTML and prints what it saw as a line of JSON.

The elements in their order with the names of their attributes, the title, the texts of scripts and
styles, the ids and labels of the drawing, and the data as a reader of JSON has them, with the own attributes of each
object unpacked.
"""

import html.parser
import json
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / 'page'))
from packed import own_attributes, unpacked  # noqa: E402


class Page(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.elements = []
        self.ids = []
        self.kept = {}
        self.policy = ''
        self.name = ''
        self.open = ''

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.open = 'data' if values.get('id') == 'page-data' else tag
        self.elements.append(' '.join([tag] + [name for name, _ in attrs]))
        if 'data-kind' in values:
            self.ids.append(values['data-id'])
        if values.get('http-equiv') == 'Content-Security-Policy':
            self.policy = values['content']
        if values.get('id') == 'drawing':
            self.name = values['aria-label']

    def handle_startendtag(self, tag, attrs):
        self.handle_starttag(tag, attrs)
        self.open = ''

    def handle_endtag(self, tag):
        self.open = ''

    def handle_comment(self, data):
        self.elements.append('comment ' + data)

    def handle_data(self, data):
        if self.open in ('title', 'script', 'style', 'data'):
            self.kept[self.open] = self.kept.get(self.open, '') + data


page = Page()
page.feed(sys.stdin.buffer.read().decode('utf-8'))
page.close()
data = json.loads(page.kept['data'])
if 'sets' in data:
    data = unpacked(data)
    data['attributes'] = own_attributes(data)
print(json.dumps({
    'elements': page.elements, 'ids': page.ids, 'policy': page.policy, 'name': page.name,
    'title': page.kept.get('title', ''), 'script': page.kept['script'], 'style': page.kept['style'],
    'data': data}))
