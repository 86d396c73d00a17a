"""What the installation of a gateway's service brings: the unit is tight, and its account is what it says."""
import pathlib
import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ET

PACKAGING = pathlib.Path(__file__).parents[2] / "packaging"
MOST_EXPOSURE = 20  # tenths, as "systemd-analyze security" counts


def run(*command):
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    return done.returncode, done.stdout + done.stderr


def unit(folder):
    """The unit as it would be installed, with a program that exists on every machine."""
    text = (PACKAGING / "tollbrooksvc.service.in").read_text()
    text = text.replace("@CMAKE_INSTALL_FULL_BINDIR@/tollbrooksvc", "/bin/true")
    text = text.replace("@CMAKE_INSTALL_FULL_DATADIR@", "/usr/share")
    text = text.replace("man:tollbrooksvc(8) ", "")  # it would be looked for among the installed ones
    path = pathlib.Path(folder) / "tollbrooksvc.service"
    path.write_text(text)
    return path


def settings(path):
    return [line.split("=", 1) for line in path.read_text().splitlines()
            if "=" in line and not line.startswith("#")]


class Unit(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.unit = unit(self.folder.name)

    def test_is_understood(self):
        status, said = run("systemd-analyze", "verify", str(self.unit))
        self.assertEqual((status, said), (0, ""))

    def test_is_tight(self):
        status, said = run("systemd-analyze", "security", "--offline=true", "--no-pager",
                           f"--threshold={MOST_EXPOSURE}", str(self.unit))
        self.assertEqual(status, 0, said)
        self.unit.write_text(self.unit.read_text().replace("ProtectSystem=strict\n", "")
                             .replace("PrivateDevices=yes\n", "")
                             .replace("SystemCallFilter=@system-service\n", ""))
        self.assertNotEqual(run("systemd-analyze", "security", "--offline=true", "--no-pager",
                                f"--threshold={MOST_EXPOSURE}", str(self.unit))[0], 0)

    def test_has_one_right_only(self):
        rights = [value for name, value in settings(self.unit)
                  if name in ("AmbientCapabilities", "CapabilityBoundingSet")]
        self.assertEqual(rights, ["CAP_NET_ADMIN"] * 2)
        self.assertIn(["PrivateUsers", "no"], settings(self.unit))  # which would take it away


class ReportUnit(unittest.TestCase):
    def test_is_understood_and_runs_as_the_account_of_reports(self):
        with tempfile.TemporaryDirectory() as folder:
            text = (PACKAGING / "tollbrook-report@.service.in").read_text()
            text = text.replace("@CMAKE_INSTALL_FULL_BINDIR@/tollbrook-report", "/bin/true")
            text = text.replace("@CMAKE_INSTALL_FULL_DATADIR@", "/usr/share")
            text = text.replace("man:tollbrook-report(1) ", "")
            path = pathlib.Path(folder) / "tollbrook-report@.service"
            path.write_text(text)
            one = pathlib.Path(folder) / "tollbrook-report@a\\x20b.service"
            self.assertEqual(run("systemd-analyze", "verify", str(one)), (0, ""))
            self.assertEqual(dict(settings(path))["User"], "tollbrook-report")
        accounts = (PACKAGING / "tollbrook.sysusers").read_text()
        self.assertIn("\nu tollbrook-report ", accounts)


class Account(unittest.TestCase):
    def test_is_a_member_of_the_group(self):
        with tempfile.TemporaryDirectory() as root:
            (pathlib.Path(root) / "etc").mkdir()
            status, said = run("systemd-sysusers", f"--root={root}",
                               str(PACKAGING / "tollbrook.sysusers"))
            self.assertEqual(status, 0, said)
            etc = pathlib.Path(root) / "etc"
            self.assertIn("tollbrooksvc:", (etc / "passwd").read_text())
            groups = (etc / "group").read_text().splitlines()
            own = [line for line in groups if line.startswith("tollbrook:")]
            self.assertEqual([line.split(":")[3] for line in own], ["tollbrooksvc"])

    def test_may_own_the_name_that_the_unit_waits_for(self):
        with tempfile.TemporaryDirectory() as folder:
            name = dict(settings(unit(folder)))["BusName"]
        owners = {policy.get("user") for policy
                  in ET.parse(PACKAGING / "org.tollbrook.Accounting.conf").iter("policy")
                  for allow in policy.iter("allow") if allow.get("own") == name}
        self.assertEqual(owners, {"root", "tollbrooksvc"})


class Kernel(unittest.TestCase):
    def test_is_told_of_neighbours_only(self):
        names = [name.strip(" -") for name, _
                 in settings(PACKAGING / "60-tollbrook-gateway.conf")]
        self.assertEqual(names, [f"net.{family}.neigh.default.gc_thresh{number}"
                                 for family in ("ipv4", "ipv6") for number in (1, 2, 3)])


PROGRAMS = {"tollbrook": 1, "tollbrook-admin": 1, "tollbrook-db": 1, "tollbrook-report": 1, "tollbrooksvc": 8}


def options(text):
    return set(re.findall(r"--([a-z]+(?:-[a-z]+)*)", text))


class Completion(unittest.TestCase):
    def test_knows_the_options_that_the_manual_pages_tell_of(self):
        for program, section in PROGRAMS.items():
            manual = (PACKAGING / "man" / f"{program}.{section}").read_text().replace("\\-", "-")
            for file in (f"bash/{program}", f"zsh/_{program}"):
                known = options((PACKAGING / "completions" / file).read_text())
                self.assertEqual(known - {"help", "version"}, options(manual) - {"help", "version"}, file)

    def test_gives_bash_the_words_that_fit(self):
        for line, words in (("tollbrook-db --d", "--dsn --dry-run --days --database "),
                            ("tollbrook cr", "credit "),
                            ("tollbrook --json user un", "unblock "),
                            ("tollbrook limit set --p", "--period --price "),
                            ("tollbrook time add anna --day t", "tuesday thursday "),
                            ("tollbrook restriction set --s", "--select "),
                            ("tollbrook purge --keep month --u", "--until --users "),
                            ("tollbrook status --y", "--yes ")):
            typed = line.split()
            script = PACKAGING / "completions" / "bash" / typed[0]
            status, said = run("bash", "-c", f"source {script}; COMP_WORDS=({line}); "
                               f"COMP_CWORD={len(typed) - 1}; _{typed[0].replace('-', '_')}; "
                               "printf '%s ' \"${COMPREPLY[@]}\"")
            self.assertEqual((status, said), (0, words), line)


class Scripts(unittest.TestCase):
    """What dpkg runs as root."""

    def test_of_packages_can_be_read_by_the_shell(self):
        scripts = sorted((PACKAGING / "debian").glob("*/*"))
        self.assertEqual(len(scripts), 6)
        for script in scripts:
            self.assertEqual(run("sh", "-n", str(script)), (0, ""), script)
            self.assertTrue(script.stat().st_mode & 0o100, script)
            self.assertIn("\nset -e\n", script.read_text(), script)

    def test_know_the_data_source_that_is_installed_when_they_remove_it(self):
        source = (PACKAGING / "bill.odbc.ini").read_text().split()
        removed = (PACKAGING / "debian" / "common" / "postrm").read_text()
        self.assertEqual(re.findall(r"'(\[\w+\]|\w+=[^']+)'", removed), source)


if __name__ == "__main__":
    unittest.main()
