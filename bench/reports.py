#!/usr/bin/env python3
"""Holds tollbrook-report against sqlite3 and against itself on fewer pages: bench/reports.py PROGRAM [ROWS]

PROGRAM is a built tollbrook-report. Prints CPU seconds, ratios and peak memory; needs sqlite3 and pdfinfo.
"""
import os
import pathlib
import re
import resource
import subprocess
import sys
import tempfile

SOURCE = pathlib.Path(__file__).resolve().parent.parent
USERS = 500
SUMMARY = """SELECT report."username", report."ip_addr", SUM(report."data"), SUM(report."senddata"), COUNT(*) FROM (
SELECT users."username", users."ip_addr", traffic_use."data", traffic_use."senddata" FROM "users" users
INNER JOIN "traffic_use" traffic_use ON users."user_id" = traffic_use."user_id"
WHERE traffic_use.period = 0 and (traffic_use.data<>0 or traffic_use.senddata<>0)
) report GROUP BY report."username", report."ip_addr" """


def cpu_seconds(*command):
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def peak_kilobytes(*command):
    """Peak memory of one command, measured in a process that has no other children."""
    script = ("import resource, subprocess, sys; subprocess.run(sys.argv[1:], check=True, stderr=subprocess.DEVNULL);"
              "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)")
    return int(subprocess.run([sys.executable, "-c", script, *command], check=True, capture_output=True).stdout)


def make_database(file, rows):
    """One traffic record a user and day, the latest day first; its indexes only slow the filling down."""
    schema = (SOURCE / "src/db/schema/sqlite.sql").read_text()
    schema = re.sub(r"CREATE (UNIQUE )?INDEX \w+ ON traffic_use[^;]*;", "", schema)
    fill = f"""PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF; {schema}
    WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {USERS})
    INSERT INTO users(user_id, username, ip_addr) SELECT i, printf('user%04d', i), printf('10.0.%d.%d', i / 256, i % 256)
    FROM n;
    WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < {rows - 1})
    INSERT INTO traffic_use(user_id, group_id, period, "current_time", data, senddata)
    SELECT 1 + i % {USERS}, 0, 0, date('2026-11-21', printf('-%d days', i / {USERS})), 1.25 * (1 + i % 97), 0.5 * (i % 31)
    FROM n;"""
    subprocess.run(["sqlite3", file], input=fill, text=True, check=True, stdout=subprocess.DEVNULL)


def pages_in(file):
    told = subprocess.run(["pdfinfo", file], check=True, capture_output=True, text=True).stdout
    return int(re.search(r"Pages:\s+(\d+)", told).group(1))


def main():
    program = os.path.abspath(sys.argv[1])
    rows = int(sys.argv[2]) if len(sys.argv) > 2 else 10_000_000
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        make_database(folder / "big.db", rows)
        (folder / "odbc.ini").write_text(f"[big]\nDriver=SQLite3\nDatabase={folder}/big.db\nStepAPI=1\nJournalMode=WAL\n")
        (folder / "Software/Tollbrook").mkdir(parents=True)
        (folder / "Software/Tollbrook/Network.toml").write_text(f'path = "{folder}/"\n')
        (folder / "reports").symlink_to(SOURCE / "src/reports/layouts")
        os.environ.update(ODBCINI=f"{folder}/odbc.ini", TOLLBROOK_CONFIG=str(folder))
        report = [program, "--dsn", "big", "--report"]
        floor = cpu_seconds("sqlite3", folder / "big.db", SUMMARY)
        summary = cpu_seconds(*report, "0", "--output", f"{folder}/summary.csv")
        print(f"summary of {rows} rows: sqlite3 {floor:.2f} s, report {summary:.2f} s, ratio {summary / floor:.2f}")
        for days in ("2026-11-21..2026-11-21", "2026-10-31..2026-11-21", "2024-03-20..2026-11-21"):
            command = [*report, "2", "--period", days, "--output", f"{folder}/pages.pdf"]
            seconds, peak = cpu_seconds(*command), peak_kilobytes(*command)
            pages = pages_in(folder / "pages.pdf")
            print(f"{pages} pages: {seconds:.2f} s, {1000 * seconds / pages:.2f} ms a page, peak {peak / 1024:.1f} MB")


main()
