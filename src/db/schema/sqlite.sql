-- The shared database on SQLite.
--
-- Names and titles are found and put in order without regard to the case of a to z; every other
-- text is compared byte by byte. Flags are small integers, 0 or 1. Identities are never used twice:
-- the rows of a removed user must not pass to the next one. Traffic is in megabytes of 2^20 bytes,
-- time in hours.

CREATE TABLE groups (
    group_id INTEGER PRIMARY KEY AUTOINCREMENT,
    name VARCHAR(255) NOT NULL DEFAULT '' COLLATE NOCASE,
    descrip VARCHAR(255) NOT NULL DEFAULT '',
    mode INTEGER NOT NULL DEFAULT 0,
    traflim INTEGER NOT NULL DEFAULT 0,
    trafperiod INTEGER NOT NULL DEFAULT 2,
    trafprice DOUBLE NOT NULL DEFAULT 0,
    own_price SMALLINT NOT NULL DEFAULT 0,
    blocked SMALLINT NOT NULL DEFAULT 0,
    blockreason INTEGER NOT NULL DEFAULT 0,
    portaccess SMALLINT NOT NULL DEFAULT 0,
    timeaccess SMALLINT NOT NULL DEFAULT 0,
    credit DOUBLE NOT NULL DEFAULT 0,
    creditvalue DOUBLE NOT NULL DEFAULT 0
);
CREATE INDEX groups_name ON groups (name);

CREATE TABLE users (
    user_id INTEGER PRIMARY KEY AUTOINCREMENT,
    username VARCHAR(255) NOT NULL DEFAULT '' COLLATE NOCASE,
    stationname VARCHAR(255) NOT NULL DEFAULT '' COLLATE NOCASE,
    fullname VARCHAR(255) NOT NULL DEFAULT '' COLLATE NOCASE,
    descrip VARCHAR(255) NOT NULL DEFAULT '',
    ip_addr VARCHAR(255) NOT NULL DEFAULT '',
    mac_addr VARCHAR(255) NOT NULL DEFAULT '',
    group_id INTEGER NOT NULL DEFAULT 80,
    mode INTEGER NOT NULL DEFAULT 0,
    traflim INTEGER NOT NULL DEFAULT 0,
    timelim INTEGER NOT NULL DEFAULT 0,
    trafperiod INTEGER NOT NULL DEFAULT 2,
    timeperiod INTEGER NOT NULL DEFAULT 2,
    trafprice DOUBLE NOT NULL DEFAULT 0,
    own_price SMALLINT NOT NULL DEFAULT 0,
    blocked SMALLINT NOT NULL DEFAULT 0,
    blockreason INTEGER NOT NULL DEFAULT 0,
    authreq SMALLINT NOT NULL DEFAULT 0,
    monitored SMALLINT NOT NULL DEFAULT 1,
    portaccess SMALLINT NOT NULL DEFAULT 0,
    timeaccess SMALLINT NOT NULL DEFAULT 0,
    timeblocked SMALLINT NOT NULL DEFAULT 0,
    "virtual" SMALLINT NOT NULL DEFAULT 0
);
CREATE INDEX users_list_username ON users (monitored, username);
CREATE INDEX users_list_stationname ON users (monitored, stationname);
CREATE INDEX users_list_fullname ON users (monitored, fullname);
CREATE INDEX users_list_ip_addr ON users (monitored, ip_addr);
CREATE INDEX users_list_mac_addr ON users (monitored, mac_addr);
CREATE INDEX users_list_blocked ON users (monitored, blocked);
CREATE INDEX users_username ON users (username);
CREATE INDEX users_ip_addr ON users (ip_addr);
CREATE INDEX users_group ON users (group_id, username);
CREATE INDEX users_mode ON users (mode);

CREATE TABLE traffic_use (
    traf_id INTEGER PRIMARY KEY AUTOINCREMENT,
    user_id INTEGER NOT NULL DEFAULT 0,
    group_id INTEGER,
    period INTEGER NOT NULL DEFAULT 0,
    "current_time" DATE NOT NULL DEFAULT (date('now', 'localtime')),
    data DOUBLE NOT NULL DEFAULT 0,
    senddata DOUBLE NOT NULL DEFAULT 0,
    blocked SMALLINT NOT NULL DEFAULT 0
);
CREATE INDEX traffic_use_user ON traffic_use (user_id, period, "current_time");
CREATE INDEX traffic_use_group ON traffic_use (group_id, period, "current_time")
    WHERE group_id IS NOT NULL;
CREATE INDEX traffic_use_day ON traffic_use ("current_time");

CREATE TABLE time_use (
    time_id INTEGER PRIMARY KEY AUTOINCREMENT,
    user_id INTEGER NOT NULL DEFAULT 0,
    period INTEGER NOT NULL DEFAULT 0,
    "current_time" DATE NOT NULL DEFAULT (date('now', 'localtime')),
    data DOUBLE NOT NULL DEFAULT 0,
    blocked SMALLINT NOT NULL DEFAULT 0
);
CREATE INDEX time_use_user ON time_use (user_id, period, "current_time");
CREATE INDEX time_use_day ON time_use ("current_time");

-- A user's record names no group and a group's no user; a credit without a bound has no amount.
CREATE TABLE billing (
    bill_id INTEGER PRIMARY KEY AUTOINCREMENT,
    mode INTEGER NOT NULL DEFAULT 0,
    object_id INTEGER,
    group_id INTEGER,
    trafid INTEGER,
    time_id INTEGER,
    "date" DATETIME NOT NULL DEFAULT (datetime('now', 'localtime')),
    data DOUBLE,
    "usage" DOUBLE NOT NULL DEFAULT 0,
    moneydata DOUBLE,
    moneyusage DOUBLE NOT NULL DEFAULT 0,
    currencydata DOUBLE,
    unlimited SMALLINT NOT NULL DEFAULT 0,
    expiredday VARCHAR(255) NOT NULL DEFAULT '',
    closed SMALLINT NOT NULL DEFAULT 0
);
CREATE INDEX billing_user ON billing (object_id, mode, "date");
CREATE INDEX billing_group ON billing (group_id, mode, "date");
CREATE INDEX billing_traffic ON billing (trafid);
CREATE INDEX billing_time ON billing (time_id);
CREATE INDEX billing_mode ON billing (mode, "date");
CREATE INDEX billing_date ON billing ("date");

CREATE TABLE time_blocked (
    tb_id INTEGER PRIMARY KEY AUTOINCREMENT,
    user_id INTEGER,
    group_id INTEGER,
    dayofweek INTEGER NOT NULL DEFAULT 0,
    timestart VARCHAR(255) NOT NULL DEFAULT '',
    timestop VARCHAR(255) NOT NULL DEFAULT ''
);
CREATE INDEX time_blocked_user ON time_blocked (user_id, dayofweek, timestart);
CREATE INDEX time_blocked_group ON time_blocked (group_id, dayofweek, timestart);

CREATE TABLE protocols (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    proto_name VARCHAR(255) NOT NULL DEFAULT '' COLLATE NOCASE,
    mon SMALLINT NOT NULL DEFAULT 0
);
CREATE INDEX protocols_name ON protocols (proto_name);

CREATE TABLE ports (
    port_id INTEGER PRIMARY KEY AUTOINCREMENT,
    proto_id INTEGER NOT NULL DEFAULT 0,
    port_number INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX ports_protocol ON ports (proto_id, port_number);

CREATE TABLE port_blocked (
    pb_id INTEGER PRIMARY KEY AUTOINCREMENT,
    user_id INTEGER,
    group_id INTEGER,
    port_id INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX port_blocked_user ON port_blocked (user_id, port_id);
CREATE INDEX port_blocked_group ON port_blocked (group_id, port_id);

-- A login's user is 0 or -1 when it is bound to none.
CREATE TABLE logins (
    login VARCHAR(255) NOT NULL PRIMARY KEY,
    pwd VARCHAR(255) NOT NULL DEFAULT '',
    userid INTEGER NOT NULL DEFAULT 0,
    limitip VARCHAR(255) NOT NULL DEFAULT '',
    limitmac VARCHAR(255) NOT NULL DEFAULT '',
    limitpcmode INTEGER NOT NULL DEFAULT 0,
    limitpc INTEGER NOT NULL DEFAULT 0,
    "virtual" INTEGER NOT NULL DEFAULT 0,
    allowstats INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX logins_user ON logins (userid);

CREATE TABLE sites (
    site_id INTEGER PRIMARY KEY AUTOINCREMENT,
    sitename VARCHAR(255) NOT NULL DEFAULT '',
    site_ip VARCHAR(255) NOT NULL DEFAULT ''
);

-- access_time is text such as 2026.11.21 08:30:00, which sorts and compares as time does.
CREATE TABLE siteaccess (
    access_id INTEGER PRIMARY KEY AUTOINCREMENT,
    user_id INTEGER NOT NULL DEFAULT 0,
    site_id INTEGER NOT NULL DEFAULT 0,
    access_time VARCHAR(255) NOT NULL DEFAULT ''
);
CREATE INDEX siteaccess_user ON siteaccess (user_id, access_time);
CREATE INDEX siteaccess_time ON siteaccess (access_time);

-- The group that cannot be left out, and the protocols that every network knows.
INSERT INTO groups (group_id, name, descrip)
    VALUES (80, 'Everybody', 'Users that belong to no other group');
INSERT INTO protocols (id, proto_name, mon) VALUES
    (1, 'HTTP', 1), (2, 'HTTPS', 1), (3, 'FTP', 1), (4, 'SMTP', 1), (5, 'POP3', 1), (6, 'IMAP', 1),
    (7, 'DNS', 1), (8, 'Telnet', 1), (9, 'SSH', 1), (10, 'NNTP', 1), (11, 'NTP', 1),
    (12, 'SMTP submission', 1), (13, 'IMAPS', 1), (14, 'POP3S', 1), (15, 'Remote Desktop', 1);
INSERT INTO ports (port_id, proto_id, port_number) VALUES
    (1, 1, 80), (2, 1, 8080), (3, 2, 443), (4, 3, 20), (5, 3, 21), (6, 4, 25), (7, 5, 110),
    (8, 6, 143), (9, 7, 53), (10, 8, 23), (11, 9, 22), (12, 10, 119), (13, 11, 123), (14, 12, 465),
    (15, 12, 587), (16, 13, 993), (17, 14, 995), (18, 15, 3389);
