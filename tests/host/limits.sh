#!/bin/sh
# What the program does when the system takes no more from it: limits.sh FORME SAMPLES
set -u
forme=$1
samples=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0

expect() {
    if [ "$2" != "$3" ]; then
        echo "$1: expected $3, not $2"
        failures=1
    fi
}

if [ -c /dev/full ]; then
    for command in calls selfcheck "stops $samples/letter.xml" --help \
        "run $samples/letter.xml $samples/letter-demo.jsonl"; do
        "$forme" $command >/dev/full 2>/dev/null
        [ $? -ne 0 ]
        expect "status of $command with a full output" $? 0
    done
    reason=$(echo '["undo"]' | "$forme" serve 2>&1 >/dev/full)
    expect "serve with a full output" "$reason" "the output cannot be written"
fi

echo '["save","'"$folder"'/letter.xml",1]' >"$folder/save.jsonl"
(ulimit -f 1; "$forme" run "$samples/letter.xml" "$folder/save.jsonl" >/dev/null 2>&1)
expect "status with a limit of the size of files" $? 1
expect "files left behind" "$(ls -A "$folder")" save.jsonl
expect "subjects of self checks in the output" "$("$forme" selfcheck | grep -c ' 0 failed$')" 5
exit $failures
