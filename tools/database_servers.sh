# Sourced by test.sh: a PostgreSQL and a MariaDB server of its own on the loopback address, in a
# folder of its own, which end with stop_servers. The servers of the machine are left alone.
# shellcheck shell=bash

server_packages=(postgresql-15 odbc-postgresql mariadb-server-core mariadb-client-core odbc-mariadb
    galera-4)

# Servers refuse to run as root.
as_server_user() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u "$server_user" -- "$@"; else "$@"; fi
}

free_port() {
    local port
    while :; do
        port=$((20000 + RANDOM % 20000))
        (: <"/dev/tcp/127.0.0.1/$port") 2>/dev/null || break
    done
    echo "$port"
}

# Sets CATALOGADOR_TEST_POSTGRESQL and CATALOGADOR_TEST_MARIADB, connection strings of empty databases,
# and the same with _LOG, the servers' own logs of every statement.
start_servers() {
    prepare_servers
    start_postgresql
    start_mariadb
}

prepare_servers() {
    # Not one of the machine's own server users, whose folders this must not reach.
    server_user=nobody
    servers_folder=$(mktemp -d)
    chmod 711 "$servers_folder"
    # With Debian's list of drivers the one of PostgreSQL leaves a log in /tmp for every connection.
    sed 's/^CommLog *=.*/CommLog=0/' /etc/odbcinst.ini >"$servers_folder/odbcinst.ini"
    export ODBCSYSINI=$servers_folder
}

server_folder() {
    mkdir "$servers_folder/$1"
    [ "$(id -u)" -ne 0 ] || chown "$server_user" "$servers_folder/$1"
    echo "$servers_folder/$1"
}

start_postgresql() {
    local programs=/usr/lib/postgresql/15/bin folder port
    folder=$(server_folder postgresql)
    port=$(free_port)
    as_server_user "$programs/initdb" -D "$folder/data" -U catalogador -A trust -E UTF8 \
        --locale=C.UTF-8 --no-sync >"$servers_folder/postgresql.log" 2>&1 || server_failed postgresql
    # What a power failure would leave of these databases is of no interest.
    run_server postgresql "$programs/postgres" -D "$folder/data" -p "$port" \
        -c listen_addresses=127.0.0.1 -c unix_socket_directories="$folder" -c fsync=off \
        -c log_statement=all -c log_line_prefix='%m [%p] %d '
    wait_for 30 as_server_user "$programs/createdb" -h 127.0.0.1 -p "$port" -U catalogador tests ||
        server_failed postgresql
    export CATALOGADOR_TEST_POSTGRESQL="Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=$port;Database=tests;UID=catalogador"
    export CATALOGADOR_TEST_POSTGRESQL_LOG="$servers_folder/postgresql.log"
}

start_mariadb() {
    local folder port
    folder=$(server_folder mariadb)
    port=$(free_port)
    as_server_user mariadb-install-db --no-defaults --datadir="$folder/data" --skip-test-db \
        --auth-root-authentication-method=normal >"$servers_folder/mariadb.log" 2>&1 ||
        server_failed mariadb
    run_server mariadb mariadbd --no-defaults --datadir="$folder/data" --port="$port" \
        --bind-address=127.0.0.1 --socket="$folder/socket" --pid-file="$folder/pid" \
        --character-set-server=utf8mb4 --innodb-flush-log-at-trx-commit=0 \
        --general-log --general-log-file="$folder/statements.log"
    wait_for 30 mariadb --no-defaults -h 127.0.0.1 -P "$port" -u root \
        -e "create database if not exists tests" || server_failed mariadb
    export CATALOGADOR_TEST_MARIADB="Driver={MariaDB Unicode};Server=127.0.0.1;Port=$port;Database=tests;UID=root"
    export CATALOGADOR_TEST_MARIADB_LOG="$folder/statements.log"
}

tools_folder=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
galera_library=/usr/lib/galera/libgalera_smm.so

# Sets CATALOGADOR_TEST_GALERA: a connection string for each of three MariaDB nodes that replicate to
# each other, one a line, which names the other nodes after it. Not part of start_servers.
start_galera() {
    local node
    galera_ports=() galera_groups=()
    server_folder galera >/dev/null
    as_server_user mariadb-install-db --no-defaults --datadir="$servers_folder/galera/1" \
        --skip-test-db --auth-root-authentication-method=normal >"$servers_folder/galera.log" 2>&1 ||
        server_failed galera
    for node in 1 2 3; do
        galera_groups+=("127.0.0.1:$(free_port)")
        galera_ports+=("$(free_port)")
    done
    # Nodes that begin with the same data, at the same change, need no copy of each other's.
    start_galera_node 1
    galera_sql 1 "create database tests"
    signal_server TERM "$servers_folder/galera/1.pid"
    wait "${server_processes%% *}" || true
    for node in 2 3; do cp -a "$servers_folder/galera/1" "$servers_folder/galera/$node"; done
    CATALOGADOR_TEST_GALERA=
    for node in 1 2 3; do
        start_galera_node "$node"
        CATALOGADOR_TEST_GALERA+="Driver={MariaDB Unicode};Server=127.0.0.1,127.0.0.1,127.0.0.1;Port=${galera_ports[node - 1]},${galera_ports[node % 3]},${galera_ports[(node + 1) % 3]};Database=tests;UID=root"$'\n'
    done
    export CATALOGADOR_TEST_GALERA
}

start_galera_node() {
    local index=$(($1 - 1)) first=()
    [ "$1" != 1 ] || first=(--wsrep-new-cluster)
    PATH="$tools_folder:$PATH" run_server galera mariadbd --no-defaults \
        --datadir="$servers_folder/galera/$1" --port="${galera_ports[index]}" \
        --bind-address=127.0.0.1 --socket="$servers_folder/galera/$1.socket" \
        --pid-file="$servers_folder/galera/$1.pid" --character-set-server=utf8mb4 \
        --innodb-flush-log-at-trx-commit=0 --innodb-buffer-pool-size=32M --binlog-format=ROW \
        --innodb-autoinc-lock-mode=2 --wsrep-on=ON --wsrep-provider="$galera_library" \
        --wsrep-cluster-address="gcomm://$(IFS=,; echo "${galera_groups[*]}")" \
        --wsrep-node-address="${galera_groups[index]}" --wsrep-sst-method=carry \
        --wsrep-provider-options="gmcast.listen_addr=tcp://${galera_groups[index]};ist.recv_addr=127.0.0.1:$(free_port);gcache.size=32M;pc.recovery=no" \
        "${first[@]}"
    wait_for 40 galera_has "$1" wsrep_ready ON || server_failed galera
}

kill_galera_node() { signal_server KILL "$servers_folder/galera/$1.pid"; }

# galera_sql NODE STATEMENT
galera_sql() {
    mariadb --no-defaults --connect-timeout=5 -h 127.0.0.1 -P "${galera_ports[$1 - 1]}" -u root -Ne "$2"
}
# galera_has NODE STATUS VALUE
galera_has() { galera_sql "$1" "show status like '$2'" | grep -qw -- "$3"; }

server_failed() {
    echo "The $1 server did not start:" >&2
    tail -n 30 "$servers_folder/$1.log" >&2
    return 1
}

# run_server NAME COMMAND...: and remembers how, for resume_servers
run_server() {
    local name=$1
    shift
    server_name=$name
    server_command=("$@")
    (cd / && as_server_user "$@" >>"$servers_folder/$name.log" 2>&1) &
    server_processes="$! ${server_processes:-}"
}

# The server that was started last, stopped and started again on the same data and port.
pause_servers() { end_servers; }
resume_servers() {
    run_server "$server_name" "${server_command[@]}"
    wait_for 30 server_answers || server_failed "$server_name"
}
server_answers() {
    local connection
    case $server_name in
        postgresql) connection=$CATALOGADOR_TEST_POSTGRESQL ;;
        mariadb) connection=$CATALOGADOR_TEST_MARIADB ;;
    esac
    echo 'sql "Select 1"' | "$program" run --connect "$connection" --view 0
}

signal_server() {
    [ ! -f "$2" ] || kill -s "$1" "$(head -n 1 "$2")" 2>/dev/null || true
}

end_servers() {
    local process node
    # What makes each end at once, whoever is still connected.
    signal_server INT "$servers_folder/postgresql/data/postmaster.pid"
    signal_server TERM "$servers_folder/mariadb/pid"
    for node in 1 2 3; do signal_server KILL "$servers_folder/galera/$node.pid"; done
    for process in ${server_processes:-}; do wait "$process" 2>/dev/null || true; done
    server_processes=""
}

stop_servers() {
    [ -n "${servers_folder:-}" ] || return 0
    end_servers
    rm -rf --one-file-system "$servers_folder"
    servers_folder=""
    unset ODBCSYSINI
}
