#!/usr/bin/env bash
# failover_test.sh VANZET
# A primary and a synchronous standby. The primary is killed in the middle of many commits and the standby takes over:
# every commit that was acknowledged is there, none is there twice. VANZET_SHOP_WRITES: the number of commits, instead
# of 100; VANZET_SHOP_RUNS: how often, instead of once.
set -uo pipefail
vanzet=$1
writes=${VANZET_SHOP_WRITES:-100}
programs=$(find /usr/lib/postgresql -path '*/bin/postgres' | sort -V | tail -n 1 | xargs dirname)
PATH=$programs:$PATH
as_server=()
[ "$(id -u)" -ne 0 ] || as_server=(setpriv --reuid=postgres --regid=postgres --clear-groups)
# Not below TMPDIR: the path of a socket is short.
place=$(mktemp -d /tmp/vanzet-failover.XXXXXX)
chmod 755 "$place"
declare -A servers=()
finish() {
  local name
  for name in "${!servers[@]}"; do kill -QUIT "${servers[$name]}" 2>/dev/null; done
  wait
  rm -rf "$place"
}
trap finish EXIT
trap 'exit 1' INT TERM HUP
cd "$place" || exit 1

die() { echo "FAILED: $*"; tail -n 5 ./*/log; exit 1; }
# start NAME SETTINGS...: a server in the folder NAME, which dies with this script.
start() {
  local name=$1
  shift
  (cd "$name" && exec setsid "${as_server[@]}" setpriv --pdeathsig QUIT postgres -D "$place/$name/data" -c listen_addresses= \
    -c "unix_socket_directories=$place/$name" -c shared_buffers=32MB "$@" >>"$place/$name.log" 2>&1 </dev/null) &
  servers[$name]=$!
  for _ in $(seq 300); do
    if pg_isready -q -h "$place/$name"; then return; fi
    sleep 0.1
  done
  die "the server $name does not start: $(cat "$place/$name.log")"
}
stop() { kill -INT "${servers[$1]}"; wait "${servers[$1]}"; }
# Ends all processes of a server at once, as a power failure would; the first one, which is stopped, starts no other.
power_fails() {
  local first=${servers[$1]}
  kill -STOP "$first"
  # shellcheck disable=SC2046
  kill -KILL $(cat "/proc/$first/task/$first/children") "$first"
  wait "$first" 2>/dev/null
}
sql() { psql -qAtX -h "$place/$1" -U vanzet -d "${3:-vanzet}" -c "$2"; }
make_folder() {
  mkdir "$1"
  [ "$(id -u)" -ne 0 ] || chown postgres "$1"
}

make_pair() {
  rm -rf first second lathe acknowledged
  make_folder first
  make_folder second
  cp -a base/data first/
  start first
  sql first 'CREATE DATABASE vanzet' postgres
  (cd second && "${as_server[@]}" pg_basebackup -D data -R -h "$place/first" -U vanzet --checkpoint=fast --no-sync) || die 'no standby'
  start second
  stop first
  start first -c 'synchronous_standby_names=*'
  until [ "$(sql first "SELECT count(*) FROM pg_stat_replication WHERE sync_state='sync'")" = 1 ]; do sleep 0.1; done
  mkdir lathe
  printf '[store]\nengine=host=%s,%s user=vanzet dbname=vanzet target_session_attrs=read-write\nkeep=1000000\n' "$place/first" "$place/second" >lathe/bench.ini
}

# A program that is started while no server takes changes fails; the person tries again.
write_all() {
  local i
  for i in $(seq "$writes"); do
    until printf 'vdm 1\nrecord\n.%d\nend 1\n' "$i" | "$vanzet" vdm load - 7 lathe --wait 60 >/dev/null 2>>reasons; do sleep 0.05; done
    echo "$i" >>acknowledged
  done
}

fail_over_once() {
  make_pair
  write_all &
  local writer=$! at=$((writes / 2 + RANDOM % 20))
  until [ -f acknowledged ] && [ "$(wc -l <acknowledged)" -ge "$at" ]; do sleep 0.01; done
  sleep "0.0$((RANDOM % 9))"
  power_fails first
  (cd second && "${as_server[@]}" pg_ctl promote -D data -w >/dev/null) || die 'no promotion'
  wait "$writer"
  [ "$(sql second 'SELECT last_generation FROM vanzet.project')" = "$writes" ] || die "a commit is missing or repeated: $(cat reasons)"
  # Each generation holds what was written as that one.
  [ "$(sql second "SELECT count(*) FROM vanzet.vdm JOIN vanzet.place ON place.vdm = vdm.number AND place.last = vdm.last
      JOIN vanzet.record ON record.key = place.record
      WHERE convert_from(substring(content FROM 1 FOR length(content) - 1), 'UTF8') = vdm.first::text")" = "$writes" ] || die 'an acknowledged content is missing'
  [ "$("$vanzet" vdm save 7 - lathe | sed -n 3p)" = ".$writes" ] || die 'the last state is another one'
  [ "$("$vanzet" store check lathe)" = 'nothing was found' ] || die 'the store is damaged'
  stop second
}

make_folder base
(cd base && "${as_server[@]}" initdb -D data -U vanzet --auth=trust -N >/dev/null) || die 'no server'
for run in $(seq "${VANZET_SHOP_RUNS:-1}"); do
  fail_over_once
  echo "run $run: all $writes commits are there"
done
