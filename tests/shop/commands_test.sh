#!/usr/bin/env bash
# commands_test.sh VANZET
# The program with its stores on a server, which tools/with-postgres gives it. VANZET_SHOP_SECONDS: how long crowds of
# programs work, instead of 5 seconds.
set -uo pipefail
vanzet=$1
jobs=$(cd "$(dirname "$0")/../../examples/definitions" && pwd)
seconds=${VANZET_SHOP_SECONDS:-5}
. "$(dirname "$(realpath "$0")")/steps.sh"
form() { printf 'vdm 1\nrecord\n.%s\nend 1\n' "$1"; }
# Everything that can be read of a project.
content() {
  run history "$1" --json
  cat "$1/drawing.txt" "$1/clampdevice.cld"
  run vdm save 1000 - "$1"
  run vdm save 1001 - "$1"
}

the_main_commands_work() {
  run new lathe --set "engine=$server" >/dev/null
  expect lathe "$(sql "SELECT name FROM vanzet.project")"
  [ ! -e lathe/store.db ] || fail "there is a store in the folder"
  run define "$jobs/bar-job.json" lathe >/dev/null
  run vdm save 1000 first.vdm lathe >/dev/null
  run define "$jobs/bar-job.json" lathe >/dev/null
  form 7 >7.vdm
  run vdm load 7.vdm 1000 lathe >/dev/null
  "$vanzet" diff lathe 2 >/dev/null
  expect 3 $?
  run restore lathe 2 >/dev/null
  run vdm save 1000 again.vdm lathe >/dev/null
  cmp first.vdm again.vdm || fail "the restored state is another one"
  expect 'new define define vdm load restore ' "$(sql "SELECT occasion FROM vanzet.generation ORDER BY number" | tr '\n' ' ')"
  expect 'nothing was found' "$(run store check lathe)"
  refused 'the store is on a server' store repair lathe
  expect 3 "$(run show lathe | head -n 3 | wc -l)"
}

a_definition_is_the_same_in_a_file_and_on_a_server() {
  local job number kept file
  run new in-file/twin >/dev/null
  run new on-server/twin --set "engine=$server" >/dev/null
  for job in bar-job chuck-transfer; do
    for kept in in-file on-server; do run define "$jobs/$job.json" $kept/twin >/dev/null; done
    for number in 1000 1001; do
      for kept in in-file on-server; do run vdm save $number $kept/$number.vdm $kept/twin >/dev/null; done
      cmp in-file/$number.vdm on-server/$number.vdm || fail "VDM $number is another one on the server after $job"
    done
    for file in drawing.txt clampdevice.cld; do
      cmp in-file/twin/$file on-server/twin/$file || fail "$file is another one on the server after $job"
    done
  done
}

a_project_is_the_same_after_it_was_moved_to_the_server_and_back() {
  run new moved >/dev/null
  run define "$jobs/bar-job.json" moved >/dev/null
  form 7 | run vdm load - 1001 moved >/dev/null
  run catalogue set moved 'Chuck 160' B=91 max_speed=4100 >/dev/null
  content moved >before
  expect 'copied 2 VDMs with 3 generations to the server' "$(run store copy moved "$server")"
  VANZET_STORE=$server content moved >there
  cmp before there || fail "the project is another one on the server"
  refused 'has generations already' store copy moved "$server"
  VANZET_STORE=$server run store backup moved monday.db >/dev/null
  rm moved/store.db
  run store copy "$server" moved >/dev/null
  content moved >after
  cmp before after || fail "the project is another one after the way back"
  expect '' "$(cat err)"
  cp monday.db moved/store.db
  content moved >after
  cmp before after || fail "the backup is another store"
  expect 'nothing was found' "$(run store check moved)"
  refused '--project is missing' store copy "$server" "$server"
  mkdir empty
  refused '--project has no effect' store copy moved empty --project x
}

a_project_is_the_same_in_another_folder() {
  mkdir elsewhere
  run store copy "$server" elsewhere --project moved >/dev/null
  content elsewhere >after
  cmp before after || fail "the project is another one in a new folder"
  cmp moved/clampdevice.json elsewhere/clampdevice.json || fail "the maker data are others in a new folder"
  run new own >/dev/null
  rm own/store.db
  run catalogue add own 'Chuck 777' --kind chuck --letter A=105 --letter B=90 --letter C=20 >/dev/null
  cp own/clampdevice.cld own.cld
  run store copy "$server" own --project moved >/dev/null
  grep -q "kept as '.*clampdevice.former/clampdevice.cld'" err || fail "the line is: $(cat err)"
  content own >after
  cmp before after || fail "the project is another one in a folder with a catalogue"
  cmp own.cld own/clampdevice.former/clampdevice.cld || fail "the former catalogue is not kept"
}

a_project_that_comes_later_brings_the_devices_that_the_server_lacks() {
  run new late >/dev/null
  run catalogue add late 'Chuck 888' --kind chuck --letter A=105 --letter B=90 --letter C=20 >/dev/null
  run store copy late "$server" >/dev/null
  expect "vanzet: the catalogue of the server keeps its own values of 'Chuck 160'" "$(cat err)"
  VANZET_STORE=$server run catalogue show moved 'Chuck 888' >/dev/null
  VANZET_STORE=$server run catalogue show late 'Chuck 160' --json | grep -q '"B": 91' || fail "the server's device was replaced"
}

a_project_is_the_same_on_another_server() {
  sql "CREATE DATABASE other"
  local other="${server/dbname=vanzet/dbname=other}"
  VANZET_STORE=$server run catalogue history moved 'Chuck 888' --json >before
  VANZET_STORE=$server run catalogue list moved --json >list
  run store copy "$server" "$other" --project moved >/dev/null
  VANZET_STORE=$other content moved >there
  VANZET_STORE=$server content moved >here
  cmp here there || fail "the project is another one on the other server"
  VANZET_STORE=$other run catalogue history moved 'Chuck 888' --json >after
  cmp before after || fail "the catalogue has another history on the other server"
  VANZET_STORE=$other run catalogue list moved --json >after
  cmp list after || fail "the catalogue is another one on the other server"
  VANZET_STORE=$other run catalogue set moved 'Chuck 888' B=92 >/dev/null
  expect 2 "$(VANZET_STORE=$other run catalogue history moved 'Chuck 888' | wc -l)"
  mkdir third
  run store copy "$other" third --project moved >/dev/null
  cmp moved/drawing.txt third/drawing.txt || fail "the drawing is another one on the other server"
}

# crowd PROGRAMS: each writes its number of the round into its VDM of its project, as long as the time lasts.
crowd() {
  rm -f faults rounds.*
  local i
  for i in $(seq "$1"); do
    (
      end=$((SECONDS + seconds)) round=0
      while [ $SECONDS -lt $end ]; do
        round=$((round + 1))
        form $round | "$vanzet" vdm load - "$i" "$(project_of "$i")" --wait 120 >/dev/null 2>>faults || echo "program $i" >>faults
      done
      echo $round >"rounds.$i"
    ) &
  done
  wait
  [ ! -s faults ] || fail "crowd of $1: $(head -n 3 faults)"
  for i in $(seq "$1"); do
    expect ".$(cat "rounds.$i")" "$("$vanzet" vdm save "$i" - "$(project_of "$i")" | sed -n 3p)"
  done
  expect "$(($(cat rounds.* | paste -sd+)))" "$(sql "SELECT sum(last_generation) FROM vanzet.project WHERE name LIKE '$2'")"
}

many_programs_lose_no_update() {
  mkdir one && printf '[store]\nengine=%s\n' "$server" >one/bench.ini
  project_of() { echo one; }
  crowd 8 one
  local i
  for i in $(seq 50); do
    mkdir "own$i" && printf '[store]\nengine=%s\n' "$server" >"own$i/bench.ini"
  done
  project_of() { echo "own$1"; }
  crowd 50 'own%'
}

a_reader_reads_and_cannot_write() {
  sql "CREATE ROLE reader LOGIN; GRANT USAGE ON SCHEMA vanzet TO reader; GRANT SELECT ON ALL TABLES IN SCHEMA vanzet TO reader"
  content lathe >before
  VANZET_STORE=${server/user=vanzet/user=reader} content lathe >there
  cmp before there || fail "a reader reads something else"
  VANZET_STORE=${server/user=vanzet/user=reader} refused "'reader'" vdm load 7.vdm 7 lathe
  VANZET_STORE=${server/user=vanzet/user=reader} refused "'reader'" define "$jobs/bar-job.json" lathe
  content lathe >after
  cmp before after || fail "a reader changed something"
}

a_wrong_password_is_one_line_without_it() {
  local folder=${server#host=}
  folder=${folder%% *}
  sql "CREATE ROLE locked LOGIN PASSWORD 'right'"
  sed -i '1i local all locked scram-sha-256' "$folder/data/pg_hba.conf"
  sql "SELECT pg_reload_conf()" >/dev/null
  VANZET_STORE="${server/user=vanzet/user=locked} password=hunter2" refused 'password authentication failed for user "locked"' show lathe
  ! grep -q hunter2 err || fail "the password is shown"
  VANZET_STORE='host=/nowhere dbname=x password=hunter2' refused 'cannot be reached' history lathe
  ! grep -q hunter2 err || fail "the password is shown"
}

the_tables_of_another_version_are_refused() {
  content lathe >before
  sql "UPDATE vanzet.schema SET version = version + 1"
  refused 'belongs to a newer version: it has schema ' history lathe
  refused 'belongs to a newer version: it has schema ' define "$jobs/bar-job.json" lathe
  sql "UPDATE vanzet.schema SET version = 0"
  refused 'is damaged: unknown schema 0' history lathe
  refused 'is damaged: unknown schema 0' define "$jobs/bar-job.json" lathe
  sql "UPDATE vanzet.schema SET version = 1"
  content lathe >after
  cmp before after || fail "something was changed"
}

a_changed_record_is_found() {
  sql "UPDATE vanzet.record SET content = overlay(content placing '\x58' from 1) WHERE key = (SELECT max(key) FROM vanzet.record r JOIN vanzet.project p ON p.id = r.project WHERE p.name = 'lathe') AND project = (SELECT id FROM vanzet.project WHERE name = 'lathe')"
  "$vanzet" store check lathe >out
  expect 3 $?
  grep -q 'checksum' out || fail "the finding is: $(cat out)"
}

for test in the_main_commands_work a_definition_is_the_same_in_a_file_and_on_a_server a_project_is_the_same_after_it_was_moved_to_the_server_and_back \
  a_project_is_the_same_in_another_folder a_project_that_comes_later_brings_the_devices_that_the_server_lacks a_project_is_the_same_on_another_server many_programs_lose_no_update \
  a_reader_reads_and_cannot_write a_wrong_password_is_one_line_without_it the_tables_of_another_version_are_refused \
  a_changed_record_is_found; do
  echo "$test"
  "$test"
done
[ ! -s "$place/failed" ]
