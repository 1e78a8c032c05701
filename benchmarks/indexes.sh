#!/bin/bash
# Gives menu items and orders of a database of benchmarks/largefirm.sh one of three sets of indexes, to measure what the
# chosen ones are worth:
#   benchmarks/indexes.sh DIR DATABASE keys|plain|schema
# keys:   only what the foreign keys need, and orders by person
# plain:  in addition one index for each condition, without the columns that are only read
# schema: those of db/schema.sql
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { echo "indexes: $*" >&2; exit 1; }
[ $# = 3 ] || fail "usage: benchmarks/indexes.sh DIR DATABASE keys|plain|schema"

needed="ADD KEY foodID (foodID), ADD KEY segmentID (segmentID)"
case "$3" in
    keys)
        items=""
        orders="ADD KEY item (orderableID), ADD KEY person (uid)"
        ;;
    plain)
        items=", ADD KEY week (bid, date), ADD KEY day (date)"
        orders="ADD KEY item (orderableID), ADD KEY person (uid)"
        ;;
    schema)
        # The table definitions say which: their lines "KEY name (columns)" but the two above.
        items=$(sed -n '/CREATE TABLE via_orderables/,/ENGINE/s/^ *\(KEY \(week\|day\) .*\),$/, ADD \1/p' db/schema.sql | tr -d '\n')
        orders=$(sed -n '/CREATE TABLE via_orders/,/ENGINE/s/^ *\(KEY .*\),$/ADD \1/p' db/schema.sql | paste -sd,)
        ;;
    *) fail "unknown set '$3'" ;;
esac

scripts/database sql "$1" "$2" <<SQL
SET SESSION foreign_key_checks = 0;
ALTER TABLE via_orderables DROP KEY IF EXISTS week, DROP KEY IF EXISTS day, DROP KEY foodID, DROP KEY segmentID, $needed$items;
ALTER TABLE via_orders DROP KEY item, DROP KEY person, $orders;
ANALYZE TABLE via_orderables, via_orders;
SHOW INDEXES FROM via_orderables;
SHOW INDEXES FROM via_orders;
SQL
