# The demonstration network in build/demo/: settings, database, message bus, service; with lab=yes the
# laboratory in build/lab/. Read in by run.
# shellcheck shell=bash

demo=${demo:-$PWD/build/demo}
programs=${programs:-$PWD/build/release/bin}
lab=${lab:-no}
export ODBCINI=$demo/odbc.ini

# Makes what is not there yet; what is there stays as the administrator left it, with the newest tables.
make_demo() {
    if [ -f "$demo/complete" ]; then
        "$programs/tollbrook-db" upgrade --while-connected --dsn tollbrook-demo >>"$demo/database.log"
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
    sed -i "s|$PWD/build/demo/|$demo/|" "$demo/config/Software/Tollbrook/Network.toml"
    ln -s "$PWD/src/reports/layouts" "$demo/reports"
    [ "$lab" = no ] || make_lab_config "$demo/config/Software"
)

# The laboratory's network is 10.77.0.0/16 behind lan0, and is counted every other second, whatever the
# protocol. Its workstations share one hardware address.
make_lab_config() {
    sed -i -e 's/^timer = .*/timer = "2"/' -e 's/^\(PaneAutoRefreshPeriod\) = .*/\1 = "2"/' \
        -e 's/^\(ControlMAC\|monitorprotmode\) = .*/\1 = "0"/' \
        "$1/Tollbrook/Network.toml"
    printf '%s\n' 'rangenum = "1"' 'net0 = 172818432' 'mask0 = 4294901760' \
        >"$1/Tollbrook/Network/localip.toml"
    sed -i 's/^NIC = .*/NIC = "lan0"/' "$1/Harrowmere/Tallyspring.toml"
}

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
    if [ "$lab" = yes ]; then
        "$programs/tollbrook-lab" --fill tollbrook-demo >>"$demo/database.log"
        return
    fi
    "$programs/tollbrook-db" demo --dsn tollbrook-demo --users 240 --groups 9 --days 400 >>"$demo/database.log"
}

# Starts a message bus of our own and the stand-in service on it. Sets DBUS_SESSION_BUS_ADDRESS.
start_service() {
    local address
    exec {address}< <(exec dbus-daemon --config-file=demo/bus.conf --nofork --nopidfile \
        --print-address 2>"$demo/bus.log")
    bus_pid=$!
    read -r DBUS_SESSION_BUS_ADDRESS <&"$address" || {
        echo "The message bus did not start; $demo/bus.log tells why." >&2
        exit 1
    }
    export DBUS_SESSION_BUS_ADDRESS
    local service=tollbrooksvc-demo
    [ "$lab" = no ] || service=tollbrook-lab
    STATE_DIRECTORY=$demo "$programs/$service" --config "$demo/config" >"$demo/service.log" 2>&1 &
    service_pid=$!
    # The console looks for the service once, at its start.
    for _ in {1..50}; do
        grep -qs ' ready$' "$demo/service.log" && return
        sleep 0.1
    done
    echo "The service did not start; $demo/service.log tells why." >&2
}

# Ends whatever runs of the demonstration, the console first; runs at every exit.
end_demo() {
    local pid
    for pid in ${console_pid:-} ${service_pid:-} ${bus_pid:-}; do
        kill "$pid" 2>/dev/null || true
    done
    # Nobody waits for ever for one that does not end.
    for _ in {1..100}; do
        [[ -n $(jobs -pr) ]] || return 0
        sleep 0.1
    done
    for pid in $(jobs -pr); do
        echo "Process $pid does not end and is killed: $(ps -o args= -p "$pid")" >&2
        kill -KILL "$pid" 2>/dev/null || true
    done
    wait
}
