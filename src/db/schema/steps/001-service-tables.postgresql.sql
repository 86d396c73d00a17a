-- What the accounting service remembers from one count to the next.

-- The kernel's counters of an address as they were last accounted, in bytes. They go on only within
-- the generation of the kernel's table in which they were read. `unknown` is 1 for what was counted
-- before the address was somebody's.
CREATE TABLE service_counters (
    gateway VARCHAR(64) COLLATE "C" NOT NULL,
    address VARCHAR(64) COLLATE "C" NOT NULL,
    unknown SMALLINT NOT NULL DEFAULT 0,
    user_id INTEGER NOT NULL DEFAULT 0,
    generation VARCHAR(20) COLLATE "C" NOT NULL DEFAULT '',
    received DOUBLE PRECISION NOT NULL DEFAULT 0,
    sent DOUBLE PRECISION NOT NULL DEFAULT 0,
    PRIMARY KEY (gateway, address, unknown)
);

-- The gateways that account here; `seen` is a moment in UTC.
CREATE TABLE service_gateways (
    gateway VARCHAR(64) COLLATE "C" NOT NULL PRIMARY KEY,
    generation VARCHAR(20) COLLATE "C" NOT NULL DEFAULT '',
    instance VARCHAR(64) COLLATE "C" NOT NULL DEFAULT '',
    seen VARCHAR(32) COLLATE "C" NOT NULL DEFAULT ''
);

-- What a day took of a credit: megabytes or hours, and money in the base currency at the price then.
CREATE TABLE credit_use (
    bill_id INTEGER NOT NULL,
    day DATE NOT NULL,
    data DOUBLE PRECISION NOT NULL DEFAULT 0,
    money DOUBLE PRECISION NOT NULL DEFAULT 0,
    price DOUBLE PRECISION NOT NULL DEFAULT 0,
    PRIMARY KEY (bill_id, day)
);

-- How many of the numbered steps this database has behind it: the largest number.
CREATE TABLE schema_version (
    version INTEGER NOT NULL PRIMARY KEY
);
