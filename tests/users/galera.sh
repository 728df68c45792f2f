#!/usr/bin/env bash
# Users on the three nodes of a cluster; with new and same, one of the nodes is killed while they work.
#
#   galera.sh MANY_USERS new|same|seen ARGUMENT...
set -euo pipefail
many_users=$(realpath "$1")
shift
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/virtual_display.sh"
. "$(dirname "${BASH_SOURCE[0]}")/../../tools/database_servers.sh"
if [ ! -f "$galera_library" ] || ! command -v mariadbd >/dev/null; then
    echo "skipped: galera-4 or mariadb-server-core is not installed"
    exit 77
fi
trap stop_servers EXIT
prepare_servers
start_galera
if [ "$1" = seen ]; then
    "$many_users" "$1" galera "${@:2}"
    exit
fi
"$many_users" "$1" galera "${@:2}" &
working=$!
working_on() { kill -0 "$working" 2>/dev/null; }
# Records that the users have stored so far.
stored() {
    galera_sql 1 "select count(*) from users_$working.genCodigoTexto where CTeValor1 > 0" 2>/dev/null || echo 0
}
while working_on && [ "$(stored)" -lt "${KILL_AT:-30}" ]; do sleep 0.1; done
kill_galera_node 3
if ! working_on; then
    echo "the work had ended before a node was killed" >&2
    exit 1
fi
echo "node 3 was killed after $(stored) records"
wait "$working"
