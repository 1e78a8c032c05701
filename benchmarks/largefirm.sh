#!/bin/bash
# Makes the database of a large firm on a private server of scripts/database: the same firm at every call on one day,
# whatever its size. It takes a few minutes and about 2 GB at full size.
#
#   benchmarks/largefirm.sh DIR DATABASE [--items N] [--people N] [--orders N] [--branches N] [--foods N]
#
#   DIR         directory of the server, started when it does not run (as a throw-away one: fast, not durable)
#   DATABASE    made anew; what is there under that name is dropped
#   --items     menu items, 1000000 by default
#   --people    employees, 2000 by default
#   --orders    orders, 10000000 by default
#   --branches  branches, by default one for each 60 people, 30 at most; every cell of the plan exists once more for
#               "all branches" (bid NULL). 0 gives a firm that plans for all branches only: the week statement's worst
#               case, since the items of one bid cannot be told apart by an index before their dates are computed
#   --foods     foods of the catalogue, 3000 by default
#
# Shape: three service slots a day, seven days a week (the firm works in shifts), 10 to 15 items in a cell (a day, a slot,
# a branch), six meal types. The plan ends with the third week from now and reaches as far back as the items last: about
# 2.4 years at the default size. Items up to this week are locked, those of weeks more than a year old closed for good,
# later ones are open; one in twenty has a limit. Orders go to items that are not open, as many to each, from people of the
# item's branch.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() { echo "largefirm: $*" >&2; exit 1; }
say() { echo "largefirm: $* ($SECONDS s)" >&2; }

[ $# -ge 2 ] || fail "usage: benchmarks/largefirm.sh DIR DATABASE [--items N] [--people N] [--orders N] [--branches N] [--foods N]"
dir=$1
database=$2
shift 2
[[ $database =~ ^[A-Za-z0-9_]+$ ]] || fail "'$database' is no plain database name"
items=1000000 people=2000 orders=10000000 branches= foods=3000
while [ $# -gt 0 ]; do
    [[ "${2:-}" =~ ^(0|[1-9][0-9]{0,8})$ ]] || fail "$1 needs a number from 0 to 999999999"
    case "$1" in
        --items) items=$2 ;;
        --people) people=$2 ;;
        --orders) orders=$2 ;;
        --branches) branches=$2 ;;
        --foods) foods=$2 ;;
        *) fail "unknown option '$1'" ;;
    esac
    shift 2
done
[ -n "$branches" ] || branches=$((people / 60 > 30 ? 30 : people < 60 ? 1 : people / 60))
[ "$items" -gt 0 ] && [ "$people" -gt 0 ] && [ "$orders" -gt 0 ] || fail "items, people and orders must be above 0"
[ "$people" -ge "$branches" ] || fail "there must be at least one person for each branch"
homes=$((branches > 0 ? branches : 1))
[ "$foods" -ge 20 ] || fail "a cell has up to 15 different foods: at least 20 foods are needed"

sql() { scripts/database sql "$dir" "$@"; }

scripts/database start "$dir" --throwaway
sql -e "DROP DATABASE IF EXISTS $database; CREATE DATABASE $database; CREATE USER IF NOT EXISTS 'vianda'@'localhost'"
sql "$database" <db/schema.sql
sql "$database" <db/grants.sql

# Six cells in a row have 10, 11, ... 15 items: 75 together. A day has (branches + 1) * 3 cells.
rest=$((items % 75))
cells=$((items / 75 * 6 + (rest > 0) + (rest > 10) + (rest > 21) + (rest > 33) + (rest > 46) + (rest > 60)))
days=$(((cells + (branches + 1) * 3 - 1) / ((branches + 1) * 3)))
stride=251
while [ $((foods % stride)) = 0 ] || [ $((stride % foods)) = 0 ]; do stride=$((stride + 2)); done

say "people, branches and catalogue"
sql "$database" <<SQL
SET SESSION foreign_key_checks = 0, unique_checks = 0;
INSERT INTO branches (bid, name) SELECT seq, CONCAT('Závod ', LPAD(seq, 2, '0')) FROM seq_1_to_$homes;
INSERT INTO people (uid, pid, pamId, name, surname, title, status, \`begin\`, \`end\`)
  SELECT seq, 10000 + seq, LPAD(seq, 6, '0'),
         ELT(1 + seq MOD 11, 'Ján', 'Mária', 'Peter', 'Anna', 'Štefan', 'Zuzana', 'Ľuboš', 'Katarína', 'Ondrej', 'Želmíra', 'Jozef'),
         CONCAT(ELT(1 + seq MOD 13, 'Kováč', 'Horváth', 'Chovanec', 'Šťastný', 'Ďurica', 'Hudák', 'Čierny', 'Balážová', 'Ľuptáková',
                    'Žiaková', 'Cibuľová', 'Ňachajová', 'Varga'), ' ', seq),
         IF(seq MOD 7 = 0, 'Ing.', ''), IF(seq MOD 50 = 0, 0, 1),
         UNIX_TIMESTAMP('2015-01-01'), IF(seq MOD 40 = 1, UNIX_TIMESTAMP(CURDATE() - INTERVAL 30 DAY), NULL)
  FROM seq_1_to_$people;
INSERT INTO brape (uid, bid) SELECT seq, 1 + (seq - 1) MOD $homes FROM seq_1_to_$people;
INSERT INTO admins_people (aid, uid) SELECT 1, seq FROM seq_1_to_$people;
INSERT INTO bradm (aid, bid) SELECT 1, seq FROM seq_1_to_$homes;
INSERT INTO vars (name, value) VALUES ('via_activeDays', '2222222'), ('via_shownWeeks', '3'), ('via_orderLimitEnabled', '1');
INSERT INTO via_types (typeID, name, position, informative) VALUES
  (1, 'Polievka', 1, 1), (2, 'Hlavné jedlo', 2, 0), (3, 'Príloha', 3, 0), (4, 'Šalát', 4, 0), (5, 'Dezert', 5, 0), (6, 'Nápoj', 6, 0);
INSERT INTO via_segments (segmentID, name, start, stop, position) VALUES
  (1, 'Raňajky', '06:00', '08:30', 1), (2, 'Obed', '11:00', '14:00', 2), (3, 'Večera', '17:30', '20:00', 3);
INSERT INTO via_suppliers (supplierID, name, description, deadline, shortcut, daysto)
  SELECT seq, CONCAT('Dodávateľ ', seq), '', '10:00', CHAR(64 + seq USING utf8mb4), 1 FROM seq_1_to_12;
INSERT INTO via_supplierbranch (supplierID, bid)
  SELECT s.seq, NULLIF(b.seq, 0) FROM seq_1_to_12 s JOIN seq_0_to_$branches b WHERE (s.seq + b.seq) MOD 3 = 0 OR b.seq = 0;
INSERT INTO via_foods (foodID, typeID, supplierID, name, description, price)
  SELECT seq, 1 + seq MOD 6, IF(seq MOD 97 = 0, NULL, 1 + seq MOD 12),
         CONCAT(ELT(1 + seq MOD 6, 'Polievka', 'Pečené mäso', 'Zemiaky', 'Zeleninový šalát', 'Koláč', 'Čaj'), ' číslo ', seq,
                REPEAT(' s prílohou', seq MOD 4)),
         CONCAT('Opis jedla ', seq), 0.5 + (seq * 7 MOD 90) / 10
  FROM seq_1_to_$foods;
INSERT INTO via_alergens (alergenID, title) SELECT seq, CONCAT('Alergén ', seq) FROM seq_1_to_14;
INSERT INTO via_foodalergen (foodID, alergenID)
  SELECT f.seq, 1 + (f.seq * 3 + a.seq * 5) MOD 14 FROM seq_1_to_$foods f JOIN seq_0_to_2 a;
SQL

say "$items menu items over $days days"
sql "$database" <<SQL
SET SESSION foreign_key_checks = 0, unique_checks = 0;
SET @monday = CURDATE() - INTERVAL WEEKDAY(CURDATE()) DAY, @branches = $branches;
INSERT INTO via_orderables (foodID, bid, segmentID, date, position, price, \`limit\`, locked)
  SELECT 1 + (cell * 7919 + place * $stride) MOD $foods, NULLIF(cell DIV 3 MOD (@branches + 1), 0), 1 + cell MOD 3, day,
         1 + place, 0.5 + (cell + place * 7) MOD 90 / 10, IF((cell + place) MOD 20 = 0, 50, 0),
         CASE WHEN day < @monday - INTERVAL 364 DAY THEN 2 WHEN day < @monday + INTERVAL 7 DAY THEN 1 ELSE 0 END
  FROM (SELECT cell, place, @monday + INTERVAL 27 DAY - INTERVAL back DAY day
        FROM (SELECT cell, place, $days - 1 - cell DIV (3 * (@branches + 1)) back
              FROM (SELECT seq DIV 75 * 6 + (rest >= 10) + (rest >= 21) + (rest >= 33) + (rest >= 46) + (rest >= 60) cell,
                           rest - CASE WHEN rest < 10 THEN 0 WHEN rest < 21 THEN 10 WHEN rest < 33 THEN 21
                                       WHEN rest < 46 THEN 33 WHEN rest < 60 THEN 46 ELSE 60 END place
                    FROM (SELECT seq, seq MOD 75 rest FROM seq_0_to_$((items - 1))) numbers) cells) places) plan;
SQL

# The keys run from 1 in the order of the days, so the items that are not open are the first ones.
closed=$(sql -N -B "$database" -e "SELECT COUNT(*) FROM via_orderables WHERE locked > 0")
[ "$closed" -gt 0 ] || fail "$items items do not reach back to this week; nothing can be ordered"
say "$orders orders of $closed items"
sql "$database" <<SQL
SET SESSION foreign_key_checks = 0, unique_checks = 0;
INSERT INTO via_orders (orderableID, uid, quantity, ordered)
  SELECT o.orderableID,
         IF(o.bid IS NULL, 1 + (o.orderableID * 37 + turn * 191) MOD $people,
            o.bid + $homes * ((o.orderableID * 13 + turn) MOD (($people - o.bid) DIV $homes + 1))),
         IF(number MOD 9 = 0, 2, 1),
         CONCAT('ZEP-adminID: ', 1 + number MOD 5, ', ', DATE_FORMAT(o.date - INTERVAL 3 DAY, '%e.%c.%Y'), ', ',
                6 + number MOD 10, ':', number MOD 60, ':', number * 7 MOD 60)
  FROM (SELECT seq number, 1 + seq * $closed DIV $orders item,
               seq - (seq * $closed DIV $orders * $orders + $closed - 1) DIV $closed turn
        FROM seq_0_to_$((orders - 1))) numbers
  STRAIGHT_JOIN via_orderables o ON o.orderableID = numbers.item;
SQL

say "statistics"
sql "$database" -e "ANALYZE TABLE people, branches, brape, bradm, admins_people, vars, via_types, via_suppliers, via_foods,
    via_alergens, via_foodalergen, via_segments, via_orderables, via_orders, via_supplierbranch" >/dev/null
sql -t "$database" -e "SELECT (SELECT COUNT(*) FROM via_orderables) items, (SELECT MIN(date) FROM via_orderables) \`from\`,
    (SELECT MAX(date) FROM via_orderables) \`to\`, (SELECT COUNT(*) FROM people) people, (SELECT COUNT(*) FROM via_orders) orders,
    (SELECT ROUND(SUM(data_length + index_length) / 1048576) FROM information_schema.tables WHERE table_schema = '$database') MB"
say "done"
