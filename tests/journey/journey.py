"""The whole journey of a user, through the accessibility bus: browse, search, open a page, save, dismiss, install,
open, go back, quit. Prints a line for each step; the first step that does not come true ends it with status 1."""

import filecmp
import os
import pathlib
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

BUNDLE = pathlib.Path(sys.argv[1])
SHOTS = pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else None
HOME = pathlib.Path(os.environ["HOME"])
STORE = BUNDLE / "Contents/MacOS/PloviStore"
# Where an application finds what it links and loads when the store runs where there are none.
LIBRARIES = os.environ.get("JOURNEY_LIBRARIES", "")
PLUGINS = os.environ.get("JOURNEY_PLUGINS", "")
PATIENCE = 60


def step(text):
    print("ok:", text, flush=True)


def wait_for(what, condition):
    """What the condition answers as soon as that is true; asks again whenever something happened on the bus."""
    context = GLib.MainContext.default()
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            answer = condition()
        except GLib.Error:  # The node has gone while it was read.
            answer = None
        if answer:
            return answer
        tick = GLib.timeout_source_new(20)
        tick.set_callback(lambda *_: False)
        tick.attach(context)
        context.iteration(True)
        tick.destroy()
    raise SystemExit(f"not ok: {what}\n" + "\n".join(outline(store())))


def applications(name):
    desktop = Atspi.get_desktop(0)
    found = (desktop.get_child_at_index(i) for i in range(desktop.get_child_count()))
    return [a for a in found if a and a.get_name() == name]


def store():
    return next(iter(applications("PloviStore")), None)


def walk(node):
    if node is None:
        return
    yield node
    for index in range(node.get_child_count()):
        yield from walk(node.get_child_at_index(index))


def is_showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def role_of(node):
    # What Debian 12 calls a push button is a button on Debian 13.
    return node.get_role_name().replace("push button", "button")


def outline(root):
    return [f"  {role_of(n)} «{n.get_name()}»" for n in walk(root) if is_showing(n) and n.get_name()]


def find(name, role=None, root=None):
    for node in walk(root or store()):
        if node.get_name() == name and is_showing(node) and (role is None or role_of(node) == role):
            return node
    return None


def see(name, role=None):
    return wait_for(f"«{name}» is shown", lambda: find(name, role))


def press(name, role="button"):
    Atspi.Action.do_action(see(name, role), 0)


def window_title(title):
    wait_for(f"the window is titled {title}", lambda: find(title, "frame"))


def screenshot(name):
    if SHOTS:
        subprocess.run(["import", "-window", "root", SHOTS / f"{name}.png"], check=True)


def browse():
    window_title("Обзор")
    see("Создано для твоего Mac.")
    names = [n.get_name() for n in walk(store()) if n.get_name().startswith("Подробнее о ")]
    assert len(names) == 4, names
    unnamed = [role_of(n) for n in walk(store()) if is_showing(n) and role_of(n) == "button" and not n.get_name()]
    assert not unnamed, unnamed
    screenshot("overview")
    step("the overview lists the four applications, and every button has a name")

    press("Медиа", "radio button")
    window_title("Медиа")
    assert see("Медиа", "radio button").get_state_set().contains(Atspi.StateType.CHECKED)
    step("a section is chosen and exposed as checked")


def search():
    press("Все приложения", "radio button")
    field = see("Поиск приложений", "text")
    Atspi.EditableText.set_text_contents(field, "zvan")
    see("Результаты поиска")
    wait_for("one application is left", lambda: find("Подробнее о Zvantelo") and not find("Подробнее о Brisko"))
    screenshot("search")
    Atspi.EditableText.set_text_contents(field, "нет такого")
    see("Ничего не найдено")
    press("Обзор", "radio button")
    wait_for("the search is empty", lambda: Atspi.Text.get_character_count(field) == 0)
    step("the search narrows the list and a section empties it")


def save():
    press("Подробнее о Brisko")
    window_title("Brisko")
    see("Назад к приложениям", "button")
    screenshot("detail")
    press("Скачать Brisko в ZIP")
    dialog = wait_for("the save panel", lambda: find("Скачать Brisko", "dialog"))
    screenshot("panel")
    Atspi.Action.do_action(wait_for("«Сохранить»", lambda: find("Сохранить", "button", dialog)), 0)
    assert see("Понятно", "button").get_state_set().contains(Atspi.StateType.FOCUSED)
    assert see("PloviStore", "dialog").get_description().startswith("Brisko сохранён."), "what a screen reader says"
    message = see("PloviStore", "text")
    assert Atspi.Text.get_text(message, 0, -1).startswith("Brisko сохранён.")
    screenshot("alert")
    saved = HOME / "Downloads/Brisko-2.4.zip"
    assert filecmp.cmp(saved, BUNDLE / "Contents/Resources/Packages/Brisko-2.4.zip", shallow=False)
    press("Понятно")
    wait_for("the message is gone", lambda: not find("Понятно", "button"))
    step("the archive is saved byte for byte, and the message is dismissed")
    return saved


def install(archive):
    subprocess.run(["unzip", "-q", archive, "-d", HOME / "Applications"], check=True)
    contents = HOME / "Applications/Brisko.app/Contents"
    (contents / "MacOS").rename(contents / "Program")
    (contents / "MacOS").mkdir()
    listing = contents / "descriptors"
    program = contents / "MacOS/Brisko"
    program.write_text(f"#!/bin/sh\n(ls /proc/self/fd; printenv QT_XCB_GL_INTEGRATION) > {listing}\nexport LD_LIBRARY_PATH='{LIBRARIES}' QT_PLUGIN_PATH='{PLUGINS}'\nexec {contents}/Program/Brisko\n")
    program.chmod(0o755)
    press("Обновить список установленных приложений")
    press("Открыть")
    wait_for("Brisko itself opens", lambda: applications("Brisko"))
    # The fourth is the folder that `ls` reads; how the store itself draws is nobody else's.
    assert listing.read_text().split() == ["0", "1", "2", "3"], listing.read_text()
    step("the unpacked application counts as installed and opens, and inherits three streams and no setting of the store")


def go_back():
    press("Назад к приложениям")
    window_title("Обзор")
    press("Загрузки", "radio button")
    see("Подробнее о Brisko", "button")
    step("the saved archive is listed under the downloads")


def leave(process):
    assert subprocess.run([STORE], timeout=PATIENCE).returncode == 0
    step("a second start ends at once")
    menu = see("PloviStore", "menu item")
    Atspi.Action.do_action(next(n for n in walk(menu) if n.get_name() == "Завершить PloviStore"), 0)
    assert process.wait(PATIENCE) == 0
    written = sorted(str(p.relative_to(HOME)) for p in HOME.rglob("*") if p.is_file())
    others = [p for p in written if not p.startswith("Applications/Brisko.app/") and p != "Downloads/Brisko-2.4.zip"]
    assert not others, others
    step("the store has ended, and nothing but the archive was written")


def main():
    process = subprocess.Popen([STORE])
    try:
        wait_for("the store is on the accessibility bus", store)
        browse()
        search()
        install(save())
        go_back()
        leave(process)
    finally:
        process.kill()
        subprocess.run(["pkill", "-f", str(HOME / "Applications/Brisko.app")], check=False)


main()
