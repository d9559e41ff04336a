#!/usr/bin/env python3
"""make_applications.py COUNT FOLDER: desktop entries under FOLDER/applications, each with an icon
of its own under FOLDER/icons. The same for each COUNT; as big as Debian's own, translations and
all."""
import pathlib
import random
import struct
import sys
import zlib

FIRST = """Swift Simple Gnome Open Smart Tiny Super Visual Quick Deep Blue Clear Cloud Fast Free
Global Grand Hyper Light Live Magic Mega Micro Multi Nano Neo Net Nova Photo Pixel Power Prime Pure
Rapid Red Retro Sonic Star Turbo Ultra Virtual Vivid Web Wild Wise Zen Zoom Alpha Astro""".split()
SECOND = """Editor Terminal Calculator Mail Browser Player Viewer Manager Studio Monitor Notes
Calendar Clock Camera Chess Chat Code Compiler Converter Dictionary Disk Draw Explorer Files Fonts
Game Graph Help Image Installer Keyboard Map Market Messenger Mixer Music Network Office Paint
Photos Podcast Print Reader Recorder Remote Scanner Screen Settings Sheet Shell Sketch Spell Store
Sync Tables Tasks Text Torrent Translate Updater Video Voice Wallet Weather Wiki Writer""".split()
CATEGORIES = "AudioVideo Development Education Game Graphics Network Office Settings Utility".split()
LANGUAGES = """ar be bg bn ca cs da de el en_GB es et eu fi fr gl he hu id it ja kk ko lt nb nl pl
pt pt_BR ro ru sk sr sv th tr uk vi zh_CN zh_TW""".split()
SIZE = 48


def png(red, green, blue):
    """A square of one colour that runs out, with a clear edge."""

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    def pixel(x, y):
        is_inside = all(4 < at < SIZE - 4 for at in (x, y))
        return bytes((red * (x + y) // (2 * SIZE), green * (2 * SIZE - x - y) // (2 * SIZE), blue,
                      255 if is_inside else 0))

    rows = b"".join(b"\0" + b"".join(pixel(x, y) for x in range(SIZE)) for y in range(SIZE))
    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 6))
            + chunk(b"IEND", b""))


def entry(pick, name, identity):
    """The lines of one desktop entry."""
    words = " ".join(pick.choice(FIRST).lower() for _ in range(5))
    lines = ["[Desktop Entry]", "Version=1.0", "Type=Application", f"Name={name}"]
    lines += [f"Name[{each}]={name[::-1]} {each}" for each in LANGUAGES]
    lines += [f"GenericName={pick.choice(SECOND)} tool"]
    lines += [f"GenericName[{each}]={pick.choice(SECOND)} {each}" for each in LANGUAGES[::2]]
    lines += [f"Comment=Use {name} for {words}"]
    lines += [f"Comment[{each}]=({each}) {words} {name}" for each in LANGUAGES]
    keywords = [pick.choice(part).lower() for part in (SECOND, SECOND, FIRST)]
    lines += [f"Keywords={';'.join(keywords)};", f"Exec=/bin/true --app={identity} %U",
              f"Icon={identity}", "Terminal=false", f"Categories={pick.choice(CATEGORIES)};"]
    if pick.random() < 0.03:
        lines += ["NoDisplay=true"]
    if pick.random() < 0.15:
        lines += ["Actions=new;", "", "[Desktop Action new]", "Name=New", "Exec=/bin/true --new"]
    return "\n".join(lines) + "\n"


def names(pick):
    """Names without end, each once."""
    seen = set()
    while True:
        name = f"{pick.choice(FIRST)} {pick.choice(SECOND)}"
        if pick.random() < 0.4:
            name += f" {pick.randint(2, 99)}"
        if name not in seen:
            seen.add(name)
            yield name


def make(count, folder):
    applications, theme = folder / "applications", folder / "icons/hicolor"
    icons = theme / "48x48/apps"
    for each in (applications, icons):
        each.mkdir(parents=True, exist_ok=True)
    (theme / "index.theme").write_text(
        "[Icon Theme]\nName=Hicolor\nComment=Synthetic\nDirectories=48x48/apps\n\n"
        "[48x48/apps]\nSize=48\nContext=Applications\nType=Threshold\n")
    pick = random.Random(7)
    for number, name in zip(range(count), names(pick)):
        identity = f"synthetic-{number:04d}"
        (applications / f"{identity}.desktop").write_text(entry(pick, name, identity))
        (icons / f"{identity}.png").write_bytes(png(*(pick.randrange(256) for _ in range(3))))


if __name__ == "__main__":
    make(int(sys.argv[1]), pathlib.Path(sys.argv[2]))
