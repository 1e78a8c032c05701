#!/bin/bash
# Runs the measuring programs of the release build on a database of benchmarks/largefirm.sh:
#   benchmarks/run.sh DIR DATABASE [PROGRAM...]     all of them by default; BUILD=folder for another build
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { echo "run: $*" >&2; exit 1; }
[ $# -ge 2 ] || fail "usage: benchmarks/run.sh DIR DATABASE [PROGRAM...]"
dir=$1
database=$2
shift 2
build=${BUILD:-build/release}
[ $# -gt 0 ] || set -- bench_statements bench_board bench_folding bench_memory

scripts/database start "$dir" --throwaway
socket=$(scripts/database socket "$dir")
for program in "$@"; do
    [ -x "$build/benchmarks/$program" ] || fail "there is no $build/benchmarks/$program; build the preset release with libmariadb-dev"
    echo "== $program"
    XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-/tmp} "$build/benchmarks/$program" --socket "$socket" --database "$database"
done
