"""The table of a page, as its script reads it."""


def differences_added(numbers, width):
    for k in range(width, len(numbers)):
        numbers[k] += numbers[k - width]
    return numbers


def text_after(last, packed):
    """A text of which so many units of UTF-16 are those of the last one as its first character tells."""
    return last.encode('utf-16-le')[:2 * (ord(packed[0]) - 35)].decode('utf-16-le') + packed[1:]


def texts(entries):
    last = ''
    for entry in entries:
        last = text_after(last, entry) if isinstance(entry, str) else last
        yield last if isinstance(entry, str) else entry


def unpacked(data):
    """The table with the lists that are meant by those that stand in the page."""
    ends = differences_added(data['ends'], 3)
    more = {'undrawn': list(texts(data['undrawn']))} if 'undrawn' in data else {}
    return data | more | {
        'box': differences_added(data['box'], 4), 'parent': differences_added(data['parent'], 1),
        'label': list(texts(data['label'])),
        'set': [number for number, count in zip(data['set'][::2], data['set'][1::2]) for _ in range(count)],
        'ends': {str(ends[k]): ends[k + 1:k + 3] for k in range(0, len(ends), 3)}}


def own_attributes(data):
    """Of each object its own ones, as numbers of names and values in turn; 0 for none."""
    values, read, last = iter(data['values']), [], {}

    def value(name):
        packed = next(values)
        if isinstance(packed, str):
            read.append(text_after(last.get(name, ''), packed))
            packed = len(read) - 1
        last[name] = read[packed]
        return last[name]

    lists = [[part for name in data['sets'][place][1:] for part in (name, value(name))] for place in data['set']]
    assert next(values, None) is None
    return [entry or 0 for entry in lists]


def all_attributes(data, i):
    """Those of an object with what it has by default, as a dictionary."""
    own = own_attributes(data)[i] or []
    found = {data['names'][name]: value for name, value in zip(own[::2], own[1::2])}
    at = data['sets'][data['set'][i]][0]
    while at >= 0:
        at, *pairs = data['defaults'][at]
        for name, value in zip(pairs[::2], pairs[1::2]):
            if data['names'][name] != 'label':
                found.setdefault(data['names'][name], value)
    return found
