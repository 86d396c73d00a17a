"""The layer check refuses a tree that breaks a rule, and only such a tree."""
import importlib.util
import pathlib
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).parents[2] / "tools/check_layers.py"
spec = importlib.util.spec_from_file_location("check_layers", TOOL)
check_layers = importlib.util.module_from_spec(spec)
spec.loader.exec_module(check_layers)

SOUND = {
    "CMakeLists.txt": "set(TB_FOLDERS base db service actions startup app\n    ui/common ui/main)\n",
    "main.cpp": '#include "ui/main/frame.h"\n#include <QDBusConnection>\n#include <QMessageBox>\n',
    "base/text.h": "#include <QString>\n#include <QStringView>\n#include <QTextDocument>\n#include <QTextLayout>\n",
    "db/session.cpp": '#include "base/text.h"\n#include "db/session.h"\n#include <sqlext.h>\n'
                      'const char *kText = "SELECT name FROM users";\n',
    "db/session.h": "",
    "db/write.h": "",
    "actions/run.h": '#include "db/write.h"\n',
    "service/link.cpp": "#include <QDBusConnection>\n",
    "startup/services.h": '#include "db/session.h"\n',
    "app/administrator_app.h": '#include "startup/services.h"\n#include <QApplication>\n',
    "ui/common/tell.h": '#include "startup/services.h"\n#include <QMessageBox>\n',
    "ui/main/frame.h": '#include "ui/common/tell.h"\n#include <QMainWindow>\n',
    "ui/main/frame.cpp": '#include "frame.moc"\nauto kLabel = u"Select an item to delete"_s;\n'
                         'auto kPeriod = u"UPDATE period"_s;\n',
}

BROKEN = [
    ("base/text.cpp", '#include "db/session.h"', "base/ may not include db/"),
    ("db/later.cpp", '#include "app/administrator_app.h"', "db/ may not include app/"),
    ("ui/common/ask.cpp", '#include "ui/main/frame.h"', "ui/common/ may not include ui/main/"),
    ("ui/main/list.cpp", "#include <sql.h>", "ui/main/ includes <sql.h>, which belongs to db/"),
    ("service/rows.cpp", "#include <sqlext.h>", "which belongs to db/"),
    ("startup/begin.cpp", '#include "app/administrator_app.h"', "startup/ may not include app/"),
    ("startup/begin.cpp", "#include <QApplication>", "which belongs to ui/ and app/"),
    ("ui/main/list.cpp", '#include "app/administrator_app.h"', "which belongs to app/"),
    ("actions/read.cpp", '#include "db/session.h"', "which belongs to db/ and startup/"),
    ("ui/main/list.cpp", '#include "db/write.h"', "which belongs to db/ and actions/"),
    ("app/bus.h", "#include <QDBusConnection>", "which belongs to service/"),
    ("db/kernel.cpp", "#include <linux/netfilter/nf_tables.h>", "which belongs to gateway/"),
    ("db/kernel.cpp", "#include <linux/netlink.h>", "which belongs to gateway/"),
    ("db/box.cpp", "#include <QMessageBox>", "which belongs to ui/ and app/"),
    ("db/all.cpp", "#include <QtWidgets>", "which belongs to ui/ and app/"),
    ("db/grid.cpp", "#include <QGridLayout>", "which belongs to ui/ and app/"),
    ("ui/main/rows.cpp", 'RunQuery("SELECT name FROM users", kAll);', "ui/main/ holds SQL text"),
    ("ui/main/rows.cpp", 'Execute("UPDATE users SET blocked = true");', "ui/main/ holds SQL text"),
    ("ui/main/rows.cpp", 'Execute(R"(DELETE FROM users)");', "ui/main/ holds SQL text"),
    ("ui/main/near.cpp", '#include "frame.h"', "not a path below src/"),
    ("ui/extra/window.h", "", "ui/extra/ has no place in the order of folders"),
]


def complaints(extra):
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        for name, text in (SOUND | extra).items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text)
        return list(check_layers.complaints(root))


class CheckLayers(unittest.TestCase):
    def test_sound_tree_passes(self):
        self.assertEqual(complaints({}), [])

    def test_each_broken_rule_is_named_where_it_is_broken(self):
        for name, line, complaint in BROKEN:
            with self.subTest(file=name, line=line):
                found = complaints({name: f"\n{line}\n"})
                self.assertEqual(len(found), 1, found)
                self.assertIn(complaint, found[0])
                self.assertIn(f"{name}:", found[0])


if __name__ == "__main__":
    sys.exit(unittest.main(verbosity=1))
