#!/bin/bash
# Runs the measuring programs of the release build on a database of benchmarks/largefirm.sh:
#   benchmarks/run.sh DIR DATABASE [PROGRAM [ARGUMENTS]]     all of them by default; BUILD=folder for another build
# bench_catalogue writes to the catalogue and wants a database of its own, of few menu items and 10,000 foods.
# Arguments of bench_board, bench_catalogue and bench_statements: --only TEXT (the steps with this text in their name), --runs N.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { echo "run: $*" >&2; exit 1; }
[ $# -ge 2 ] || fail "usage: benchmarks/run.sh DIR DATABASE [PROGRAM [ARGUMENTS]]"
dir=$1
database=$2
shift 2
build=${BUILD:-build/release}
programs=(bench_statements bench_board bench_folding bench_memory)
if [ $# -gt 0 ]; then
    programs=("$1")
    shift
fi

scripts/database start "$dir" --throwaway
socket=$(scripts/database socket "$dir")
for program in "${programs[@]}"; do
    [ -x "$build/benchmarks/$program" ] || fail "there is no $build/benchmarks/$program; build the preset release with libmariadb-dev"
    echo "== $program"
    "$build/benchmarks/$program" --socket "$socket" --database "$database" "$@"
done
