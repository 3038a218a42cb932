"""Check that the catalogues hold every text of the sources, translated.

check_catalogues.py WORK CATALOGUES PLURALS -- LUPDATE...

CATALOGUES and PLURALS are lists of files, separated by semicolons. Brings copies of them, in the folder WORK, up
to date with the sources and prints what would change, what is unfinished, and which translation lost a place
for a value, a key of access or the dots at the end.
"""

import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path


def messages(file):
    """(context, source) -> list of translations, and whether all of them are finished."""
    found = {}
    for context in ElementTree.parse(file).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            forms = translation.findall("numerusform")
            texts = [form.text or "" for form in forms] if forms else [translation.text or ""]
            key = (context.findtext("name"), message.findtext("source"))
            found[key] = (texts, translation.get("type") is None and all(texts))
    return found


def places(text):
    """What a translation has to keep: places for values, and whether there is a key of access."""
    return sorted(set(re.findall(r"%L?\d|%n", text))), len(re.findall(r"&(?!&)\S", text)), text.endswith("...")


def complaints(committed, updated):
    current = messages(updated)
    yield from (f"no longer used: {key}" for key in messages(committed) if key not in current)
    if not current:
        yield "nothing in it"
    for key, (texts, finished) in current.items():
        if not finished:
            yield f"not translated: {key}"
        elif any(places(text) != places(key[1]) for text in texts):
            yield f"another place, key or ending: {key}: {texts}"


def main():
    work, catalogues, plurals, _, *lupdate = sys.argv[1:]
    shutil.rmtree(work, ignore_errors=True)
    Path(work).mkdir(parents=True)
    found = []
    for files, options in ((catalogues.split(";"), []), (plurals.split(";"), ["-pluralonly"])):
        copies = [shutil.copy(file, work) for file in files]
        subprocess.run([*lupdate, *options, "-ts", *copies], check=True)
        for file, copy in zip(files, copies):
            found += [f"{Path(file).name}: {complaint}" for complaint in complaints(file, copy)]
    sys.exit("\n".join(found) or 0)


if __name__ == "__main__":
    main()
