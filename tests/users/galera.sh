#!/usr/bin/env bash
# Users on the three nodes of a cluster; one of the nodes is killed while they work.
#
#   galera.sh MANY_USERS new|same ARGUMENT...
set -euo pipefail
many_users=$(realpath "$1")
shift
. "$(dirname "${BASH_SOURCE[0]}")/../../packaging/virtual_display.sh"
. "$(dirname "${BASH_SOURCE[0]}")/../../packaging/database_servers.sh"
if [ ! -f "$galera_library" ] || ! command -v mariadbd >/dev/null; then
    echo "skipped: galera-4 or mariadb-server-core is not installed"
    exit 77
fi
trap stop_servers EXIT
prepare_servers
start_galera
"$many_users" "$1" galera "${@:2}" &
working=$!
sleep "${KILL_AFTER:-4}"
if kill -0 "$working" 2>/dev/null; then
    kill_galera_node 3
    echo "node 3 was killed"
else
    echo "the work had ended before a node was killed" >&2
    exit 1
fi
wait "$working"
