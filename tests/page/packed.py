"""The attributes in the table of a page, as its script reads them."""


def own_attributes(data):
    """Of each object its own ones, as numbers of names and values in turn; 0 for none."""
    values, texts, last = iter(data['values']), [], {}

    def value(name):
        packed = next(values)
        if isinstance(packed, str):
            texts.append(last.get(name, '').encode('utf-16-le')[:2 * (ord(packed[0]) - 35)].decode('utf-16-le') + packed[1:])
            packed = len(texts) - 1
        last[name] = texts[packed]
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
