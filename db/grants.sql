-- The least that the module's connection needs. Run on the module's database, after db/schema.sql, with the account
-- made before: CREATE USER 'vianda'@'localhost' IDENTIFIED BY '...';

GRANT SELECT ON people TO 'vianda'@'localhost';
GRANT SELECT ON branches TO 'vianda'@'localhost';
GRANT SELECT ON brape TO 'vianda'@'localhost';
GRANT SELECT ON bradm TO 'vianda'@'localhost';
GRANT SELECT ON admins_people TO 'vianda'@'localhost';

GRANT SELECT, INSERT, UPDATE, DELETE ON vars TO 'vianda'@'localhost';

GRANT SELECT, INSERT, UPDATE, DELETE ON via_types TO 'vianda'@'localhost';
GRANT SELECT, INSERT, UPDATE, DELETE ON via_foods TO 'vianda'@'localhost';
GRANT SELECT, INSERT, UPDATE, DELETE ON via_alergens TO 'vianda'@'localhost';
GRANT SELECT, INSERT, DELETE ON via_foodalergen TO 'vianda'@'localhost';
GRANT SELECT, INSERT, UPDATE, DELETE ON via_segments TO 'vianda'@'localhost';
GRANT SELECT, INSERT, UPDATE, DELETE ON via_orderables TO 'vianda'@'localhost';
GRANT SELECT, INSERT, DELETE ON via_orders TO 'vianda'@'localhost';
GRANT SELECT, INSERT, UPDATE, DELETE ON via_suppliers TO 'vianda'@'localhost';
GRANT SELECT, INSERT, UPDATE, DELETE ON via_suppliermails TO 'vianda'@'localhost';
GRANT SELECT, INSERT, UPDATE, DELETE ON via_branchmails TO 'vianda'@'localhost';
GRANT SELECT, INSERT, DELETE ON via_supplierbranch TO 'vianda'@'localhost';
GRANT SELECT, INSERT, UPDATE, DELETE ON via_promailsdelay TO 'vianda'@'localhost';
