#!/bin/sh
# The lumo program from the outside: output, order of actions, exit codes,
# the interactive session and scripted answers.
# usage: cli_test.sh LUMO
lumo=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

expect() {  # expect NAME EXPECTED ACTUAL
  if [ "$2" != "$3" ]; then
    printf 'FAIL %s\n  expected: %s\n  actual:   %s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
  fi
}

banner=$("$lumo" -x '(lumo_ucson)' | grep -c 'LuMo_API For ACAD 2000 Build 20506')
expect banner-once 1 "$banner"
expect ucson 1 "$("$lumo" -x '(lumo_ucson)' | tail -n 1)"
expect x-prints-prin1 '("a" 2.5)' "$("$lumo" -q -x '(list "a" 2.5)' | tail -n 1)"

printf '(setq b (* a 10))\n' > "$work/use.lsp"
expect order "10" "$("$lumo" -x '(setq a 1)' "$work/use.lsp" -x 'b' | tail -n 1)"

"$lumo" --bogus >/dev/null 2>&1; expect usage-exit 2 $?
"$lumo" "$work/missing.lsp" >/dev/null 2>&1; expect unreadable-exit 3 $?
err=$("$lumo" -x '(car 1)' 2>&1 >/dev/null); status=$?
expect error-exit 1 $status
expect error-text '; error: bad argument type: consp 1' "$err"

# A command script types its lines at the Command: prompt.
printf '(defun c:twice () (princ (* 2 21)) (princ))\ntwice\n' > "$work/job.scr"
expect script-command 42 "$("$lumo" "$work/job.scr" | grep -o 42)"
expect command-option 7 "$("$lumo" -x '(defun c:seven () (princ 7) (princ))' -c seven | tail -n 1)"

# Answers, one per line; past the end is Esc.
printf 'Hall\n' > "$work/answers"
expect answers '"Hall"' "$("$lumo" --answers "$work/answers" -x '(getstring "Name: ")' | tail -n 1)"
"$lumo" --answers "$work/answers" -x '(getstring)' -x '(getstring)' >/dev/null 2>&1
expect esc-at-end 1 $?

# The interactive session reads until parentheses balance and goes on after errors.
out=$(printf '(+ 1\n 2)\n(car 1)\n(* 3 4)\n' | "$lumo" -i -q 2>&1)
expect repl-multiline 3 "$(printf '%s\n' "$out" | grep -x '3')"
expect repl-error '; error: bad argument type: consp 1' "$(printf '%s\n' "$out" | grep -o '; error: .*')"
expect repl-goes-on 12 "$(printf '%s\n' "$out" | grep -x '12')"

# Pictures of what a script drew.
draw='(entmake (list (cons 0 "LINE") (list 10 0.0 0.0 0.0) (list 11 10.0 5.0 0.0)))(grdraw (list 0 5) (list 10 0) 1)'
"$lumo" -q --render "$work/pic.svg" -x "$draw" >/dev/null 2>&1; expect render-svg-exit 0 $?
expect render-svg-line 2 "$(grep -c '<polyline' "$work/pic.svg")"
if "$lumo" -q --render "$work/pic.png" -x "$draw" >/dev/null 2>&1; then
  expect render-png-magic PNG "$(head -c 4 "$work/pic.png" | tail -c 3)"
fi
"$lumo" -q --render "$work/pic.gif" -x '1' >/dev/null 2>&1; expect render-bad-kind-exit 3 $?

# Files written at the end are named from the starting folder, not from the
# one a script moved to.
mkdir "$work/start" "$work/start/sub"
(cd "$work/start" && "$lumo" -q -o end.dxf --render end.svg -x '(lumo_chdir "sub")' >/dev/null 2>&1)
expect output-from-start-folder yes "$([ -f "$work/start/end.dxf" ] && [ -f "$work/start/end.svg" ] && echo yes)"

[ "$failures" -eq 0 ] && echo "cli: all passed"
exit "$failures"
