-- A fresh database for the canteen module: the module's own tables (prefix via_) and the tables of the host that it
-- reads. Run on an empty database: mariadb DATABASE < db/schema.sql
--
-- * Module tables are utf8mb4 with Slovak collation. The host's people are utf8 (three bytes): one order list sorts
--   surnames by the collation utf8_slovak_ci, which belongs to that character set.
-- * A foreign key refuses a delete wherever the message of that delete tells the user what to delete first. It cascades
--   only where no refusal is promised. Host tables are not referenced: the host deletes its people and branches freely.
-- * bid NULL means "all branches". Unique keys treat NULLs as different, so a stored generated column stands in for it.
-- * Every table has a primary key, as a Galera cluster requires.

SET NAMES utf8mb4;

-- Host ----------------------------------------------------------------------------------------------------------------

CREATE TABLE people (
  uid     INT UNSIGNED NOT NULL AUTO_INCREMENT,
  pid     INT UNSIGNED NOT NULL COMMENT 'personal number shown to users',
  pamId   VARCHAR(64) NULL COMMENT 'payroll number; NULL, empty or 0 when there is none',
  name    VARCHAR(255) NOT NULL DEFAULT '',
  surname VARCHAR(255) NOT NULL DEFAULT '',
  title   VARCHAR(64) NOT NULL DEFAULT '',
  title2  VARCHAR(64) NOT NULL DEFAULT '',
  status  TINYINT UNSIGNED NOT NULL DEFAULT 1 COMMENT '0 = inactive',
  `begin` BIGINT NOT NULL DEFAULT 0 COMMENT 'start of employment, Unix seconds',
  `end`   BIGINT NULL COMMENT 'end of employment, Unix seconds; NULL or 0 = open-ended',
  PRIMARY KEY (uid),
  KEY pid (pid)
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb3 COLLATE utf8mb3_slovak_ci;

CREATE TABLE branches (
  bid  INT UNSIGNED NOT NULL AUTO_INCREMENT,
  name VARCHAR(255) NOT NULL DEFAULT '',
  PRIMARY KEY (bid)
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

-- Person belongs to branch.
CREATE TABLE brape (
  uid INT UNSIGNED NOT NULL,
  bid INT UNSIGNED NOT NULL,
  PRIMARY KEY (uid, bid),
  KEY bid (bid)
) ENGINE = InnoDB;

-- Administrator may manage branch.
CREATE TABLE bradm (
  aid INT UNSIGNED NOT NULL,
  bid INT UNSIGNED NOT NULL,
  PRIMARY KEY (aid, bid)
) ENGINE = InnoDB;

-- Administrator may manage person.
CREATE TABLE admins_people (
  aid INT UNSIGNED NOT NULL,
  uid INT UNSIGNED NOT NULL,
  PRIMARY KEY (aid, uid),
  KEY uid (uid)
) ENGINE = InnoDB;

-- Exactly two columns: the settings are written by INSERT INTO vars VALUES (name, value).
CREATE TABLE vars (
  name  VARCHAR(190) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin NOT NULL,
  value TEXT NULL,
  PRIMARY KEY (name)
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

-- Module: catalogue ---------------------------------------------------------------------------------------------------

CREATE TABLE via_types (
  typeID      INT UNSIGNED NOT NULL AUTO_INCREMENT,
  name        TEXT NOT NULL,
  position    INT UNSIGNED NOT NULL DEFAULT 0,
  informative INT UNSIGNED NOT NULL DEFAULT 0 COMMENT '1 = shown on the order form, cannot be ordered',
  PRIMARY KEY (typeID)
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

CREATE TABLE via_suppliers (
  supplierID  INT UNSIGNED NOT NULL AUTO_INCREMENT,
  name        TEXT NOT NULL COMMENT 'not unique: two suppliers may share a name',
  description TEXT NULL,
  deadline    TIME NULL COMMENT 'ordering closes at this hour, daysto days before the service',
  shortcut    TEXT NULL COMMENT 'mark put before food names',
  daysto      INT NOT NULL DEFAULT 0,
  PRIMARY KEY (supplierID)
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

-- Names and shortcuts are TEXT: whatever a user types is stored whole. The statement behind the menu editor groups a
-- derived table by food and lives on the server's keeping the first row of each; the server does so for every realistic
-- catalogue. docs/database.md tells where that ends (60 and more items in one slot with names of thousands of characters).
CREATE TABLE via_foods (
  foodID      INT UNSIGNED NOT NULL AUTO_INCREMENT,
  typeID      INT UNSIGNED NOT NULL,
  supplierID  INT UNSIGNED NULL COMMENT 'NULL = no supplier',
  name        TEXT NOT NULL,
  description TEXT NULL,
  picture     LONGBLOB NULL,
  price       DOUBLE NOT NULL DEFAULT 0,
  PRIMARY KEY (foodID),
  KEY typeID (typeID),
  KEY supplierID (supplierID),
  CONSTRAINT via_foods_type FOREIGN KEY (typeID) REFERENCES via_types (typeID) ON DELETE RESTRICT,
  CONSTRAINT via_foods_supplier FOREIGN KEY (supplierID) REFERENCES via_suppliers (supplierID) ON DELETE RESTRICT
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

CREATE TABLE via_alergens (
  alergenID   INT UNSIGNED NOT NULL AUTO_INCREMENT,
  title       TEXT NOT NULL,
  description TEXT NULL,
  PRIMARY KEY (alergenID)
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

CREATE TABLE via_foodalergen (
  foodID    INT UNSIGNED NOT NULL,
  alergenID INT UNSIGNED NOT NULL,
  PRIMARY KEY (foodID, alergenID),
  KEY alergenID (alergenID),
  CONSTRAINT via_foodalergen_food FOREIGN KEY (foodID) REFERENCES via_foods (foodID) ON DELETE CASCADE,
  CONSTRAINT via_foodalergen_alergen FOREIGN KEY (alergenID) REFERENCES via_alergens (alergenID) ON DELETE RESTRICT
) ENGINE = InnoDB;

-- Module: menus and orders --------------------------------------------------------------------------------------------

CREATE TABLE via_segments (
  segmentID INT UNSIGNED NOT NULL AUTO_INCREMENT,
  name      TEXT NOT NULL,
  start     TIME NULL,
  stop      TIME NULL,
  position  INT UNSIGNED NOT NULL DEFAULT 0,
  PRIMARY KEY (segmentID)
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

CREATE TABLE via_orderables (
  orderableID INT UNSIGNED NOT NULL AUTO_INCREMENT,
  foodID      INT UNSIGNED NOT NULL,
  bid         INT UNSIGNED NULL COMMENT 'NULL = all branches',
  segmentID   INT UNSIGNED NOT NULL,
  date        DATE NOT NULL,
  position    INT UNSIGNED NOT NULL DEFAULT 0,
  price       DOUBLE NOT NULL DEFAULT 0 COMMENT 'fixed when the food is put on the menu',
  `limit`     INT NOT NULL DEFAULT 0 COMMENT 'portions; 0 = no limit',
  locked      TINYINT UNSIGNED NOT NULL DEFAULT 0 COMMENT '0 open, 1 locked for orders, 2 closed for good',
  PRIMARY KEY (orderableID),
  -- Covers the week statement, whose date test cannot seek: it reads this index of one branch and no row.
  KEY week (bid, date, segmentID, foodID, position, locked, price, `limit`),
  KEY day (date, segmentID),
  KEY foodID (foodID),
  KEY segmentID (segmentID),
  CONSTRAINT via_orderables_food FOREIGN KEY (foodID) REFERENCES via_foods (foodID) ON DELETE RESTRICT,
  CONSTRAINT via_orderables_segment FOREIGN KEY (segmentID) REFERENCES via_segments (segmentID) ON DELETE RESTRICT
) ENGINE = InnoDB;

CREATE TABLE via_orders (
  orderID     INT UNSIGNED NOT NULL AUTO_INCREMENT,
  orderableID INT UNSIGNED NOT NULL,
  uid         INT UNSIGNED NOT NULL,
  quantity    INT NOT NULL DEFAULT 0,
  ordered     TEXT NULL COMMENT 'who entered the order and when, plain text',
  delivered   DATETIME NULL,
  PRIMARY KEY (orderID),
  -- Sums of an item, of everybody and of one person, are read from this index alone.
  KEY item (orderableID, uid, quantity),
  KEY person (uid, orderableID, quantity),
  CONSTRAINT via_orders_orderable FOREIGN KEY (orderableID) REFERENCES via_orderables (orderableID) ON DELETE RESTRICT
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

-- Module: suppliers ---------------------------------------------------------------------------------------------------

-- Mail addresses are unique per owner. The key is a hash, so that an address of any length can be stored whole:
-- INSERT IGNORE would cut one that is longer than its column.
CREATE TABLE via_suppliermails (
  supplierMailID INT UNSIGNED NOT NULL AUTO_INCREMENT,
  supplierID     INT UNSIGNED NOT NULL,
  mail           TEXT NOT NULL,
  mailHash       BINARY(32) GENERATED ALWAYS AS (UNHEX(SHA2(mail, 256))) STORED,
  PRIMARY KEY (supplierMailID),
  UNIQUE KEY owner_mail (mailHash, supplierID),
  -- Read along this one, a supplier's mails come in the order in which they were entered.
  KEY supplierID (supplierID),
  CONSTRAINT via_suppliermails_supplier FOREIGN KEY (supplierID) REFERENCES via_suppliers (supplierID) ON DELETE CASCADE
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

CREATE TABLE via_branchmails (
  branchMailID INT UNSIGNED NOT NULL AUTO_INCREMENT,
  bid          INT UNSIGNED NULL COMMENT 'NULL = all branches',
  mail         TEXT NOT NULL,
  bidKey       INT UNSIGNED GENERATED ALWAYS AS (IFNULL(bid, 0)) STORED,
  mailHash     BINARY(32) GENERATED ALWAYS AS (UNHEX(SHA2(mail, 256))) STORED,
  PRIMARY KEY (branchMailID),
  UNIQUE KEY owner_mail (bidKey, mailHash)
) ENGINE = InnoDB DEFAULT CHARACTER SET utf8mb4 COLLATE utf8mb4_slovak_ci;

CREATE TABLE via_supplierbranch (
  supplierBranchID INT UNSIGNED NOT NULL AUTO_INCREMENT,
  supplierID       INT UNSIGNED NOT NULL,
  bid              INT UNSIGNED NULL COMMENT 'NULL = all branches',
  bidKey           INT UNSIGNED GENERATED ALWAYS AS (IFNULL(bid, 0)) STORED,
  PRIMARY KEY (supplierBranchID),
  UNIQUE KEY pair (supplierID, bidKey),
  KEY bid (bid, supplierID),
  CONSTRAINT via_supplierbranch_supplier FOREIGN KEY (supplierID) REFERENCES via_suppliers (supplierID) ON DELETE RESTRICT
) ENGINE = InnoDB;

CREATE TABLE via_promailsdelay (
  proMailDelayID INT UNSIGNED NOT NULL AUTO_INCREMENT,
  supplierID     INT UNSIGNED NOT NULL,
  sendtime       TIME NULL,
  daysto         INT NOT NULL DEFAULT 0 COMMENT 'days before the service',
  PRIMARY KEY (proMailDelayID),
  CONSTRAINT via_promailsdelay_supplier FOREIGN KEY (supplierID) REFERENCES via_suppliers (supplierID) ON DELETE CASCADE
) ENGINE = InnoDB;
