-- What the accounting service remembers from one count to the next.
--
-- Each statement that makes or alters a table is kept at once: it must do no harm to run it again.

-- The kernel's counters of an address as they were last accounted, in bytes. They go on only within
-- the generation of the kernel's table in which they were read. `unknown` is 1 for what was counted
-- before the address was somebody's.
CREATE TABLE IF NOT EXISTS service_counters (
    gateway VARCHAR(64) NOT NULL,
    address VARCHAR(64) NOT NULL,
    unknown SMALLINT NOT NULL DEFAULT 0,
    user_id INTEGER NOT NULL DEFAULT 0,
    generation VARCHAR(20) NOT NULL DEFAULT '',
    received DOUBLE NOT NULL DEFAULT 0,
    sent DOUBLE NOT NULL DEFAULT 0,
    PRIMARY KEY (gateway, address, unknown)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_nopad_bin;

-- The gateways that account here; `seen` is a moment in UTC.
CREATE TABLE IF NOT EXISTS service_gateways (
    gateway VARCHAR(64) NOT NULL PRIMARY KEY,
    generation VARCHAR(20) NOT NULL DEFAULT '',
    instance VARCHAR(64) NOT NULL DEFAULT '',
    seen VARCHAR(32) NOT NULL DEFAULT ''
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_nopad_bin;

-- What a day took of a credit: megabytes or hours, and money in the base currency at the price then.
CREATE TABLE IF NOT EXISTS credit_use (
    bill_id INTEGER NOT NULL,
    day DATE NOT NULL,
    data DOUBLE NOT NULL DEFAULT 0,
    money DOUBLE NOT NULL DEFAULT 0,
    price DOUBLE NOT NULL DEFAULT 0,
    PRIMARY KEY (bill_id, day)
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_nopad_bin;

-- How many of the numbered steps this database has behind it: the largest number.
CREATE TABLE IF NOT EXISTS schema_version (
    version INTEGER NOT NULL PRIMARY KEY
) ENGINE=InnoDB DEFAULT CHARSET=utf8mb4 COLLATE=utf8mb4_nopad_bin;
