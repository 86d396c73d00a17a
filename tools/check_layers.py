"""Refuses a source file of src/ that breaks the one rule of includes.

The order of the folders stands in src/CMakeLists.txt: a folder may use those named before it.
ODBC headers belong to db/, D-Bus headers to service/ and daemon/, the kernel's of netlink to gateway/,
widgets to ui/ and app/, and ui/ is free of SQL text and of the application object: a window is handed
what it uses. The session is opened by startup/, and what changes rows goes through actions/ and, of what
the service accounts, through metering/.
The programs' own files at the top of src/ put everything together: no rule holds for them.

usage: check_layers.py SRC-FOLDER; prints file:line: complaint, exit status 1 when there is any.
"""
import pathlib
import re
import sys

ORDER = re.compile(r"set\(TB_FOLDERS\s+([^)]*)\)")
INCLUDE = re.compile(r'\s*#\s*include\s+(["<])([^">]+)[">]')
SQL = re.compile(r'["(]\s*(SELECT\s|INSERT\s+INTO\b|DELETE\s+FROM\b|CREATE\s+TABLE\b|UPDATE\s+\w+\s+SET\b)')
WIDGETS = re.compile(
    r"(?!Q(Text|Page)Layout$|Q(String|ByteArray)View$)"  # of texts, of paper, of bytes: not of windows
    r"(QtWidgets(/.*)?|QtPrintSupport|Q(Application|Style|Splitter|ToolBar|ToolTip|Completer|FormLayout)"
    r"|Q(Print)?\w*(Widget|Dialog|MainWindow|MessageBox|Wizard|WizardPage|Label|Layout|Button|ButtonGroup|Box"
    r"|Edit|View|Menu|MenuBar|StatusBar|TabBar|Splitter|Slider|Delegate|HeaderView|ScrollArea|Frame))")
OWNED = [(re.compile(r"sql\w*\.h"), ["db"]),
         (re.compile(r"QtDBus(/.*)?|QDBus\w*"), ["service", "daemon"]),
         (re.compile(r"linux/(\w*netlink|netfilter|neighbour)\.h|linux/netfilter/.*"), ["gateway"]),
         (WIDGETS, ["ui", "app"])]

# Headers of our own that only some folders may include.
KEPT = {"app/administrator_app.h": ["app"],
        "db/session.h": ["db", "startup"],
        "db/write.h": ["db", "actions", "metering"],
        "db/row_writer.h": ["db"],
        "db/direct_connection.h": ["db", "upkeep"],
        "db/maintenance.h": ["db", "upkeep"],
        "db/table_reader.h": ["db", "upkeep"],
        "db/table_writer.h": ["db", "upkeep"]}


def layer(path):
    """The folder of `path` as the order names it: two parts below ui/, one elsewhere."""
    parts = path.parts[:-1]
    return "/".join(parts[:2]) if parts[:1] == ("ui",) else "/".join(parts[:1])


def include_complaint(root, order, here, quote, name):
    if quote == '"' and not name.endswith(".moc"):
        if not (root / name).is_file():
            return f"includes {name}, which is not a path below src/"
        there = layer(pathlib.PurePath(name))
        if there != here and (there not in order or order.index(there) > order.index(here)):
            return f"{here}/ may not include {there or 'a program'}/"
        homes = KEPT.get(name, [])
        if homes and here.split("/")[0] not in homes:
            return f"{here}/ includes {name}, which belongs to {'/ and '.join(homes)}/"
    for pattern, homes in OWNED:
        if quote == "<" and pattern.fullmatch(name) and here.split("/")[0] not in homes:
            return f"{here}/ includes <{name}>, which belongs to {'/ and '.join(homes)}/"
    return None


def complaints(root):
    order = ORDER.search((root / "CMakeLists.txt").read_text()).group(1).split()
    for file in sorted(path for path in root.rglob("*") if path.suffix in (".h", ".cpp")):
        here = layer(file.relative_to(root))
        if not here:
            continue
        if here not in order:
            yield f"{file}:1: {here}/ has no place in the order of folders"
            continue
        for number, line in enumerate(file.read_text().splitlines(), 1):
            if here.startswith("ui/") and SQL.search(line):
                yield f"{file}:{number}: {here}/ holds SQL text"
            found = INCLUDE.match(line)
            complaint = found and include_complaint(root, order, here, *found.groups())
            if complaint:
                yield f"{file}:{number}: {complaint}"


if __name__ == "__main__":
    found = list(complaints(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "The folders of src/ keep their order.")
    sys.exit(bool(found))
