#!/usr/bin/env bash
# catalogue_test.sh VANZET
# The catalogue of a shop on a server, which tools/with-postgres gives it, through the program.
set -uo pipefail
vanzet=$1
. "$(dirname "$(realpath "$0")")/steps.sh"
# letter NAME LETTER PROJECT: its value.
letter() { run catalogue show "$3" "$1" --json | python3 -c "import json,sys; print(json.load(sys.stdin)['devices'][0]['letters']['$2'])"; }
# changes NAME PROJECT: a line for each generation of the device, the newest first.
changes() {
  run catalogue history "$2" "$1" --json | python3 -c "
import json,sys
for each in json.load(sys.stdin)['generations']: print(each['generation'], each['occasion'], each['change'], '; '.join(each['changes']))"
}
project() {
  run new "$1" --sample mill-turn >/dev/null
  printf '[store]\nengine=%s\n' "$server" >>"$1/bench.ini"
}

the_first_change_brings_the_devices_of_the_file() {
  project lathe
  run catalogue list lathe/clampdevice.cld --json >file.json
  run catalogue list lathe --json >read.json
  cmp file.json read.json || fail "a server without a catalogue does not leave it to the file"
  cp lathe/clampdevice.cld before.cld
  expect 'Chuck 160: B 90 -> 92' "$(run catalogue set lathe 'Chuck 160' B=92)"
  cmp lathe/clampdevice.cld before.cld || fail "the file was changed"
  run catalogue set before.cld 'Chuck 160' B=92 >/dev/null
  expect 'both are the same' "$(run catalogue diff lathe before.cld)"
}

another_project_has_the_same_devices() {
  project mill
  expect 92 "$(letter 'Chuck 160' B mill)"
  run catalogue add mill 'Chuck 250' --kind chuck --letter A=125 --letter B=105 --letter C=35 --maker max_speed=4000 >/dev/null
  expect 'Chuck 250: B 105 -> 110; max_speed 4000 -> 4500' "$(run catalogue set lathe 'Chuck 250' B=110 max_speed=4500)"
  expect 110 "$(letter 'Chuck 250' B mill)"
  run catalogue search mill 'max_speed=4400..' | grep -q 'Chuck 250' || fail "the maker data are missing"
  run catalogue show lathe 'Chuck 250' --svg chuck.svg >/dev/null
  expect 'nothing was found' "$(run catalogue check lathe)"
}

the_devices_come_back_byte_for_byte() {
  project same
  rm same/clampdevice.cld
  run catalogue set lathe 'Chuck 160' B=90 >/dev/null
  echo close >close.txt
  run script same close.txt --transcript same.jsonl >/dev/null
  cmp same/clampdevice.cld lathe/clampdevice.cld || fail "the file has other bytes than the one that was taken"
  run catalogue set lathe 'Chuck 160' B=92 >/dev/null
}

the_check_of_the_store_reads_the_devices_of_the_server() {
  project odd
  sql "UPDATE vanzet.device SET lines = convert_to('Chuck 160' || chr(10) || '77 1 2' || chr(10), 'UTF8') WHERE name = 'Chuck 160' AND last = 9223372036854775807"
  "$vanzet" store check odd >out
  expect 3 $?
  expect "clampdevice.cld: line 2: the value line does not begin with the type of a device: '77 1 2'" "$(cat out)"
}

a_device_has_a_history() {
  run catalogue remove mill 'Chuck 250' >/dev/null
  refused 'does not have the device' catalogue show lathe 'Chuck 250'
  expect "6 catalogue remove removed max_speed 4500 -> -
5 catalogue set changed B 105 -> 110; max_speed 4000 -> 4500
4 catalogue add added max_speed - -> 4000" "$(changes 'Chuck 250' lathe)"
  local line
  line=$(run catalogue history lathe 'Chuck 250' | sed -n 2p)
  [[ $line == "generation 5  20"*"Z  $(id -un)@$(uname -n)  catalogue set: changed  B 105 -> 110; max_speed 4000 -> 4500" ]] || fail "the line is: $line"
  refused 'does not have the device' catalogue history lathe 'Chuck 2500'
  refused 'this one is a file' catalogue history lathe/clampdevice.cld 'Chuck 160'
}

what_is_refused_leaves_no_generation() {
  refused 'must be less than' catalogue set lathe 'Chuck 160' C=500
  run catalogue set lathe 'Chuck 160' B=92 >/dev/null
  run catalogue merge lathe before.cld --dry-run >/dev/null
  expect 6 "$(sql "SELECT last_generation FROM vanzet.project WHERE name='catalogue/clampdevice.cld'")"
}

a_merge_is_one_generation() {
  cp before.cld other.cld
  run catalogue add other.cld 'Chuck 300' --kind chuck --letter A=150 --letter B=110 --letter C=40 >/dev/null
  run catalogue set other.cld 'Chuck 210' B=100 >/dev/null
  run catalogue set lathe 'Chuck 210' B=101 >/dev/null
  "$vanzet" catalogue merge lathe other.cld --base before.cld >out
  expect 3 $?
  grep -q '^conflict *Chuck 210: B 101 -> 100$' out || fail "the conflict is: $(cat out)"
  run catalogue merge lathe other.cld --base before.cld --prefer mine >/dev/null
  expect 101 "$(letter 'Chuck 210' B mill)"
  expect "8 catalogue merge added " "$(changes 'Chuck 300' mill)"
}

only_the_states_that_are_kept_stay() {
  sed -i "/^engine=/a keep=3" lathe/bench.ini
  local b
  for b in 102 103 104 105; do run catalogue set lathe 'Chuck 300' B=$b >/dev/null; done
  expect "kept changed changed" "$(changes 'Chuck 300' lathe | tac | cut -d' ' -f4 | paste -sd' ')"
  # Generations that made none of the states that are left are gone, too: 8 and 9 made those of this device alone.
  expect 0 "$(sql "SELECT count(*) FROM vanzet.generation g JOIN vanzet.project p ON p.id = g.project WHERE p.name = 'catalogue/clampdevice.cld' AND g.number IN (8, 9)")"
  sed -i '/^keep=/d' lathe/bench.ini
}

# Each of the hands changes its own device and one that all of them have, and adds and removes one.
many_hands_lose_no_update() {
  local i
  run catalogue set lathe 'Chuck 160' max_force=0 >/dev/null
  for i in $(seq 8); do
    run catalogue add lathe "Hand $i" --kind chuck --letter A=100 --letter B=90 --letter C=10 >/dev/null
  done
  local before
  before=$(sql "SELECT last_generation FROM vanzet.project WHERE name='catalogue/clampdevice.cld'")
  for i in $(seq 8); do
    (
      for round in $(seq 5); do
        "$vanzet" catalogue set lathe "Hand $i" C=$((10 + round)) >/dev/null 2>>faults || echo "hand $i" >>faults
        "$vanzet" catalogue set mill 'Chuck 160' "max_force=$i$round" >/dev/null 2>>faults || echo "hand $i" >>faults
        "$vanzet" catalogue add mill "New $i.$round" --kind chuck --letter A=100 --letter B=90 --letter C=10 >/dev/null 2>>faults || echo "hand $i" >>faults
      done
    ) &
  done
  wait
  [ ! -s faults ] || fail "$(head -n 3 faults)"
  expect 40 "$(run catalogue search lathe 'new' | grep -c '^New')"
  for i in $(seq 8); do expect 15 "$(letter "Hand $i" C mill)"; done
  expect 40 "$(run catalogue history lathe 'Chuck 160' | grep -c 'max_force [0-9]* -> [1-8][1-5]$')"
  expect $((before + 120)) "$(sql "SELECT last_generation FROM vanzet.project WHERE name='catalogue/clampdevice.cld'")"
}

# save NAME B PROJECT: the dialog saves a chuck. Prints what is said about devices.
save() {
  printf 'select 36\nset 2123 "%s"\nset 2033 %s\nset 2034 22.5\npress 2152\nclose\n' "$1" "$2" >save.txt
  run script "$3" save.txt --transcript save.jsonl >/dev/null
  grep device err
}

the_dialog_works_on_the_devices_of_the_server() {
  cp mill/clampdevice.cld own.cld
  expect "vanzet: the devices of the server took the place of" "$(save 'Chuck 900' 90 mill | cut -c1-51)"
  cmp mill/clampdevice.former/clampdevice.cld own.cld || fail "the former file is not kept"
  expect 90 "$(letter 'Chuck 900' B lathe)"
  expect 'dialog added' "$(changes 'Chuck 900' mill | cut -d' ' -f2,3)"
  expect 'both are the same' "$(run catalogue diff mill mill/clampdevice.cld)"
  # What others change between two runs is brought, and nothing else happens.
  run catalogue set lathe 'Chuck 900' A=100 B=91 >/dev/null
  expect '' "$(save 'Chuck 901' 90 mill)"
  grep -qA1 '^Chuck 900$' mill/clampdevice.cld || fail "the device is not there"
  expect 91 "$(run catalogue show mill/clampdevice.cld 'Chuck 900' --json | python3 -c "import json,sys; print(json.load(sys.stdin)['devices'][0]['letters']['B'])")"
  expect 91 "$(letter 'Chuck 900' B lathe)"
}

a_file_that_a_person_changed_is_merged() {
  run catalogue set mill/clampdevice.cld 'Chuck 900' A=100 B=92 >/dev/null
  run catalogue set mill/clampdevice.cld 'Chuck 901' A=100 B=93 >/dev/null
  run catalogue remove mill/clampdevice.cld 'Chuck 210' >/dev/null
  run catalogue set lathe 'Chuck 901' A=100 B=94 >/dev/null
  save 'Chuck 902' 90 mill >said
  expect "vanzet: others changed the device 'Chuck 901' meanwhile; their values are in 'vanzet catalogue history'" "$(cat said)"
  expect 92 "$(letter 'Chuck 900' B lathe)"
  expect 'file changed B 94 -> 93' "$(changes 'Chuck 901' lathe | head -n 1 | cut -d' ' -f2-)"
  refused 'does not have the device' catalogue show lathe 'Chuck 210'
  expect 'both are the same' "$(run catalogue diff mill mill/clampdevice.cld)"
}

many_dialogs_lose_no_device() {
  local i
  for i in 1 2 3 4; do project "hall$i"; done
  for i in 1 2 3 4; do
    (
      printf 'select 36\nset 2123 "Hall %s"\nset 2033 90\nset 2034 22.5\npress 2152\nclose\n' "$i" >"hall$i.txt"
      for _ in 1 2 3; do "$vanzet" script "hall$i" "hall$i.txt" --transcript "hall$i.jsonl" >/dev/null 2>&1 || echo "hall$i" >>faults; done
    ) &
  done
  wait
  [ ! -s faults ] || fail "$(head -n 3 faults)"
  expect 4 "$(run catalogue search mill 'hall' | grep -c '^Hall')"
}

a_dry_run_has_the_devices_of_the_server_and_leaves_the_files() {
  project dry
  cp -r dry dry-before
  printf 'select 3\nchoose 2124 "Chuck 900"\nclose\n' >use.txt
  run script dry use.txt --dry-run --transcript dry.jsonl >/dev/null 2>err
  ! grep '"error"' dry.jsonl || fail "the device is not offered"
  diff -r dry dry-before || fail "a dry run has changed files"
}

the_form_takes_devices_of_the_server() {
  run define --example >form.json
  sed -i 's/"Chuck 160"/"Chuck 900"/' form.json
  run define form.json dry --dry-run >/dev/null
}

a_reader_lists_and_cannot_change() {
  sql "CREATE ROLE reader LOGIN; GRANT USAGE ON SCHEMA vanzet TO reader; GRANT SELECT ON ALL TABLES IN SCHEMA vanzet TO reader"
  run catalogue list lathe >before
  VANZET_STORE=${server/user=vanzet/user=reader} run catalogue list lathe >there
  cmp before there || fail "a reader reads something else"
  VANZET_STORE=${server/user=vanzet/user=reader} run catalogue history lathe 'Chuck 300' >/dev/null
  VANZET_STORE=${server/user=vanzet/user=reader} refused "'reader'" catalogue remove lathe 'Chuck 160'
}

a_server_of_before_gets_the_table() {
  sql "DROP TABLE vanzet.device; DELETE FROM vanzet.project WHERE name LIKE 'catalogue/%'; DELETE FROM vanzet.generation"
  run catalogue list lathe >/dev/null
  run catalogue set lathe 'Chuck 160' B=95 >/dev/null
  expect 95 "$(letter 'Chuck 160' B lathe)"
}

for test in the_first_change_brings_the_devices_of_the_file the_devices_come_back_byte_for_byte another_project_has_the_same_devices a_device_has_a_history \
  what_is_refused_leaves_no_generation a_merge_is_one_generation only_the_states_that_are_kept_stay many_hands_lose_no_update \
  the_dialog_works_on_the_devices_of_the_server a_file_that_a_person_changed_is_merged many_dialogs_lose_no_device \
  a_dry_run_has_the_devices_of_the_server_and_leaves_the_files the_form_takes_devices_of_the_server \
  a_reader_lists_and_cannot_change the_check_of_the_store_reads_the_devices_of_the_server a_server_of_before_gets_the_table; do
  echo "$test"
  "$test"
done
[ ! -s "$place/failed" ]
