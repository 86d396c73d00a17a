# The demonstration network in build/demo/: settings, database, message bus, service. Read in by run.
# shellcheck shell=bash

demo=${demo:-$PWD/build/demo}
programs=${programs:-$PWD/build/release/bin}
export ODBCINI=$demo/odbc.ini

# Makes what is not there yet; what is there stays as the administrator left it, with the newest tables.
make_demo() {
    if [ -f "$demo/complete" ]; then
        "$programs/tollbrook-db" upgrade --dsn tollbrook-demo >>"$demo/database.log"
        return
    fi
    rm -rf "$demo"
    mkdir -p "$demo/screens"
    make_config
    make_database
    touch "$demo/complete"
}

# The settings hold a password: folders 0750, files 0640.
make_config() (
    umask 027
    cp -r demo/config "$demo/config"
    chmod -R u+rwX,g+rX,g-w,o= "$demo/config"
    sed -i "s|@root@|$PWD|" "$demo/config/Software/Tollbrook/Network.toml"
    ln -s "$PWD/src/reports/layouts" "$demo/reports"
)

make_database() {
    local name
    for name in tollbrook-demo bill; do # reports read the data source "bill", whatever the settings name
        cat <<INI
[$name]
Driver      = SQLite3
Database    = $demo/tollbrook.db
StepAPI     = 1
JournalMode = WAL
SyncPragma  = NORMAL
Timeout     = 2000

INI
    done >"$ODBCINI"
    "$programs/tollbrook-db" create --dsn tollbrook-demo >"$demo/database.log"
    "$programs/tollbrook-db" demo --dsn tollbrook-demo --users 240 --groups 9 --days 400 >>"$demo/database.log"
}

# Starts a message bus of our own and the stand-in service on it. Sets DBUS_SESSION_BUS_ADDRESS.
start_service() {
    local address
    exec {address}< <(exec dbus-daemon --config-file=demo/bus.conf --nofork --nopidfile \
        --print-address 2>"$demo/bus.log")
    bus_pid=$!
    read -r DBUS_SESSION_BUS_ADDRESS <&"$address" || {
        echo "The message bus did not start; build/demo/bus.log tells why." >&2
        exit 1
    }
    export DBUS_SESSION_BUS_ADDRESS
    "$programs/tollbrooksvc-demo" --config "$demo/config" >"$demo/service.log" 2>&1 &
    service_pid=$!
    # The console looks for the service once, at its start.
    for _ in {1..50}; do
        grep -qs ' ready$' "$demo/service.log" && return
        sleep 0.1
    done
    echo "The stand-in service did not start; build/demo/service.log tells why." >&2
}

# Ends whatever runs of the demonstration, the console first; runs at every exit.
end_demo() {
    local pid
    for pid in ${console_pid:-} ${service_pid:-} ${bus_pid:-}; do
        kill "$pid" 2>/dev/null || true
    done
    wait
}
