-- The demo firm: branches, people, administrators, catalogue, suppliers, menus and orders, all dates relative to today.
-- Run on a fresh database of db/schema.sql: mariadb DATABASE < db/demo.sql (scripts/demo-data does it, with pictures).
--
-- The firm is the same at every run within a week, whatever the week: what varies comes from CRC32 of keys and of days
-- counted from this week's Monday, never from chance.

SET NAMES utf8mb4;
SET @today = CURDATE();
SET @monday = @today - INTERVAL WEEKDAY(@today) DAY;

-- Settings ------------------------------------------------------------------------------------------------------------

-- Active days: the units digit is Monday, 2 is active; Sunday, the millions digit, is off.
INSERT INTO vars VALUES
  ('LCNSN', TO_BASE64('Strojárne Podhradie, a. s.')),
  ('via_activeDays', '222222'),
  ('via_shownWeeks', '3'),
  ('via_orderLimit', '0'),
  ('via_orderLimitEnabled', '1');

-- Branches and people -------------------------------------------------------------------------------------------------

INSERT INTO branches (bid, name) VALUES
  (1, 'Podhradie – výroba'),
  (2, 'Podhradie – správa'),
  (3, 'Zlievareň Horná Lehota'),
  (4, 'Sklad Trnávka'),
  (5, 'Servis Čierny Brod');

-- homes: branches of the person. from, to: days from this week's Monday; NULL = long ago, or open-ended.
CREATE TEMPORARY TABLE demo_person (
  uid INT UNSIGNED PRIMARY KEY, pamId VARCHAR(64) NULL, title VARCHAR(64), name VARCHAR(255), surname VARCHAR(255),
  title2 VARCHAR(64), homes VARCHAR(20), fromDay INT NULL, toDay INT NULL, status INT) DEFAULT CHARSET utf8mb4;

INSERT INTO demo_person VALUES
  ( 1, '000101', 'Ing.',      'Peter',     'Kováč',          '',          '2',   NULL, NULL, 1),
  ( 2, '000102', 'Mgr.',      'Zuzana',    'Kováčová',       '',          '2',   NULL, NULL, 1),
  ( 3, '000103', '',          'Ján',       'Horváth',        '',          '1',   NULL, NULL, 1),
  ( 4, '000104', '',          'Mária',     'Horváthová',     '',          '1',   NULL, NULL, 1),
  ( 5, NULL,     '',          'Štefan',    'Chovanec',       '',          '1',   NULL, NULL, 1),
  ( 6, '000106', '',          'Anna',      'Chovancová',     '',          '1',   NULL, NULL, 1),
  ( 7, '000107', '',          'Ľuboš',     'Chmelár',        '',          '3',   NULL, NULL, 1),
  ( 8, '000108', 'Ing.',      'Katarína',  'Chrenková',      'PhD.',      '2',   NULL, NULL, 1),
  ( 9, '',       '',          'Ondrej',    'Hlaváč',         '',          '1',   NULL, NULL, 1),
  (10, '000110', '',          'Jozef',     'Cíger',          '',          '3',   NULL, NULL, 1),
  (11, '000111', '',          'Želmíra',   'Čierna',         '',          '1',   NULL, NULL, 1),
  (12, '000112', '',          'Dušan',     'Ďurica',         '',          '1',   NULL, NULL, 1),
  (13, '0',      '',          'Ľudmila',   'Ľuptáková',      '',          '3',   NULL, NULL, 1),
  (14, '000114', '',          'Matúš',     'Ňachaj',         '',          '1',   NULL, NULL, 1),
  (15, '000115', 'Bc.',       'Šimon',     'Šťastný',        '',          '2',   NULL, NULL, 1),
  (16, '000116', '',          'Žaneta',    'Žiaková',        '',          '1',   NULL, NULL, 1),
  (17, '000117', '',          'Árpád',     'Öllös',          '',          '3',   NULL, NULL, 1),
  (18, '000118', 'JUDr.',     'Oľga',      'Kráľová-Hronská', 'LL.M.',    '2',   NULL, NULL, 1),
  (19, '000119', '',          'Mikuláš',   'Ábel',           '',          '4',   NULL, NULL, 1),
  (20, '000120', 'doc. Ing.', 'Vojtech',   'Úradníček',      'CSc., MBA', '2',   NULL, NULL, 1),
  (21, '000121', '',          'Maximiliána Alexandrína', 'Bartolomejčíková-Podhradská', '', '2', NULL, NULL, 1),
  (22, '000122', '',          'Ivan',      'Baláž',          '',          '1',   NULL, NULL, 1),
  (23, '000123', '',          'Eva',       'Balážová',       '',          '4',   NULL, NULL, 1),
  (24, '000124', '',          'Róbert',    'Varga',          '',          '3',   NULL, NULL, 1),
  (25, '000125', '',          'Gabriela',  'Vargová',        '',          '1',   NULL, NULL, 1),
  (26, '000126', '',          'Ľubomír',   'Tóth',           '',          '3',   NULL, NULL, 1),
  (27, '000127', '',          'Erika',     'Tóthová',        '',          '5',   NULL, NULL, 1),
  (28, '000128', '',          'Milan',     'Novák',          '',          '1',   NULL, NULL, 1),
  (29, '000129', '',          'Alžbeta',   'Nováková',       '',          '1',   NULL, NULL, 1),
  (30, '000130', '',          'Rastislav', 'Hudák',          '',          '5',   NULL, NULL, 1),
  (31, '000131', '',          'Jarmila',   'Hudáková',       '',          '1',   NULL, NULL, 1),
  (32, '000132', '',          'Marek',     'Lukáč',          '',          '3',   NULL, NULL, 1),
  (33, '000133', 'Ing.',      'Daniela',   'Lukáčová',       '',          '1,2', NULL, NULL, 1),
  (34, '000134', '',          'Tomáš',     'Molnár',         '',          '1',   NULL, NULL, 1),
  (35, NULL,     '',          'Helena',    'Molnárová',      '',          '1',   NULL, NULL, 1),
  (36, '000136', '',          'František', 'Hruška',         '',          '3',   NULL, NULL, 1),
  (37, '000137', '',          'Beáta',     'Jahodová',       '',          '4',   NULL, NULL, 1),
  (38, '000138', '',          'Karol',     'Kapusta',        '',          '1',   NULL, NULL, 1),
  (39, '000139', '',          'Silvia',    'Kukučková',      '',          '1',   NULL, NULL, 1),
  (40, '000140', '',          'Radovan',   'Mrkvička',       '',          '3',   NULL, NULL, 1),
  (41, '000141', '',          'Viera',     'Slaninková',     '',          '1',   NULL, NULL, 1),
  (42, '000142', '',          'Stanislav', 'Pecho',          '',          '1',   NULL, NULL, 1),
  (43, '000143', 'Mgr.',      'Lenka',     'Pechová',        '',          '2',   NULL, NULL, 1),
  (44, '000144', '',          'Andrej',    'Rybár',          '',          '5',   NULL, NULL, 1),
  (45, '000145', '',          'Martina',   'Rybárová',       '',          '1',   NULL, NULL, 1),
  (46, '000146', '',          'Pavol',     'Sedliak',        '',          '3',   NULL, NULL, 1),
  (47, '000147', '',          'Jana',      'Sedliaková',     '',          '1',   NULL, NULL, 1),
  (48, '000148', '',          'Boris',     'Šuster',         '',          '4',   NULL, NULL, 1),
  (49, '000149', '',          'Iveta',     'Šusterová',      '',          '1',   NULL, NULL, 1),
  (50, '000150', '',          'Michal',    'Uhrín',          '',          '1,3', NULL, NULL, 1),
  (51, '000151', '',          'Renáta',    'Vrábľová',       '',          '1',   NULL, NULL, 1),
  (52, '000152', '',          'Igor',      'Zeman',          '',          '',    NULL, NULL, 1),
  -- Those who left: in the middle of last week, some weeks ago, on last week's last day.
  (53, '000153', '',          'Dominik',   'Záhradník',      '',          '1',   NULL, -5,   1),
  (54, '000154', '',          'Emília',    'Záhradníková',   '',          '3',   NULL, -5,   1),
  (55, '000155', '',          'Vladimír',  'Žabka',          '',          '1',   NULL, -24,  1),
  (56, '000156', '',          'Nikola',    'Chlebanová',     '',          '1',   NULL, -1,   1),
  -- Those who start in the middle of this week, and on next week's first day.
  (57, '000157', '',          'Samuel',    'Jedlička',       '',          '1',   2,    NULL, 1),
  (58, NULL,     '',          'Nina',      'Jelšavská',      '',          '3',   2,    NULL, 1),
  (59, '000159', '',          'Adam',      'Krupa',          '',          '1',   7,    NULL, 1),
  -- Those who leave in the middle of next week, and at the end of the month after next.
  (60, '000160', '',          'Ľubica',    'Krupová',        '',          '1',   NULL, 9,    1),
  (61, '000161', 'Ing.',      'Ctibor',    'Dzian',          '',          '2',   NULL, 9,    1),
  (62, '000162', '',          'Soňa',      'Gajdošová',      '',          '4',   NULL, 70,   1),
  -- On leave for a long time: inactive, with orders from before.
  (63, '000163', '',          'Blažej',    'Ťažký',          '',          '1',   NULL, NULL, 0);

-- The end of employment is the last second of the last day.
INSERT INTO people (uid, pid, pamId, name, surname, title, title2, status, `begin`, `end`)
  SELECT uid, 1000 + uid, pamId, name, surname, title, title2, status,
         UNIX_TIMESTAMP(IFNULL(@monday + INTERVAL fromDay DAY, @monday - INTERVAL 400 + uid * 61 DAY)),
         IF(toDay IS NULL, IF(uid MOD 2, NULL, 0), UNIX_TIMESTAMP(@monday + INTERVAL toDay + 1 DAY) - 1)
  FROM demo_person;
INSERT INTO brape (uid, bid) SELECT uid, bid FROM demo_person JOIN branches ON FIND_IN_SET(bid, homes);

-- Administrator 1 manages everything, 2 the two branches at Podhradie and most of their people, 3 the foundry.
INSERT INTO bradm (aid, bid) VALUES (1, 1), (1, 2), (1, 3), (1, 4), (1, 5), (2, 1), (2, 2), (3, 3);
INSERT INTO admins_people (aid, uid)
  SELECT 1, uid FROM people
  UNION ALL SELECT DISTINCT 2, uid FROM brape WHERE bid IN (1, 2) AND uid MOD 6 > 0
  UNION ALL SELECT 3, uid FROM brape WHERE bid = 3;

-- Catalogue -----------------------------------------------------------------------------------------------------------

INSERT INTO via_types (typeID, name, position, informative) VALUES
  (1, 'Polievka', 2, 1),
  (2, 'Hlavné jedlo', 3, 0),
  (3, 'Príloha', 4, 0),
  (4, 'Šalát', 5, 0),
  (5, 'Dezert', 6, 0),
  (6, 'Ovocie', 7, 0),
  (7, 'Nápoj', 8, 0),
  (8, 'Raňajkové jedlo', 1, 0);

INSERT INTO via_alergens (alergenID, title, description) VALUES
  (1, 'Obilniny obsahujúce lepok', 'pšenica, raž, jačmeň, ovos, špalda, kamut alebo ich hybridné odrody a výrobky z nich'),
  (2, 'Kôrovce', 'kôrovce a výrobky z nich'),
  (3, 'Vajcia', 'vajcia a výrobky z nich'),
  (4, 'Ryby', 'ryby a výrobky z nich'),
  (5, 'Arašidy', 'arašidy a výrobky z nich'),
  (6, 'Sójové zrná', 'sójové zrná a výrobky z nich'),
  (7, 'Mlieko', 'mlieko a výrobky z neho vrátane laktózy'),
  (8, 'Orechy', 'mandle, lieskové orechy, vlašské orechy, kešu, pekanové orechy, para orechy, pistácie, makadamové orechy a výrobky z nich'),
  (9, 'Zeler', 'zeler a výrobky z neho'),
  (10, 'Horčica', 'horčica a výrobky z nej'),
  (11, 'Sezamové semená', 'sezamové semená a výrobky z nich'),
  (12, 'Oxid siričitý a siričitany', 'oxid siričitý a siričitany v koncentráciách vyšších ako 10 mg/kg alebo 10 mg/l'),
  (13, 'Vlčí bôb', 'vlčí bôb (lupina) a výrobky z neho'),
  (14, 'Mäkkýše', 'mäkkýše a výrobky z nich');

INSERT INTO via_suppliers (supplierID, name, description, deadline, shortcut, daysto) VALUES
  (1, 'Jedáleň Podhradie, s. r. o.', 'Závodná kuchyňa v areáli. Varí obedy a večere, rozváža o 10:30 a o 16:45.', '10:00', 'JP', 1),
  (2, 'Gastro Hron, spol. s r. o.', 'Dovoz obedov v termoboxoch pre výrobu a zlievareň.\nMinimálny odber 10 porcií.', '14:00', 'GH', 2),
  (3, 'Pekáreň U Zrna', 'Pečivo, obložené chleby a koláče, dovoz do 5:45.', '12:30', 'PZ', 1),
  (4, 'Studnička – ovocie a nápoje', 'Ovocie, mušty a minerálne vody.', '09:00', 'ST', 3);

-- A menu can be made of the foods of those suppliers that are linked to its branch; NULL stands for all branches.
INSERT INTO via_supplierbranch (supplierID, bid) VALUES
  (1, NULL), (3, NULL), (4, NULL), (1, 2), (2, 1), (2, 3), (4, 1), (4, 3), (3, 1), (2, 4), (3, 5);
INSERT INTO via_suppliermails (supplierID, mail) VALUES
  (1, 'objednavky@jedalen-podhradie.example'), (1, 'veduca.kuchyne@jedalen-podhradie.example'),
  (2, 'dispecing@gastrohron.example'), (3, 'uzrna@pekaren.example'), (4, 'predaj@studnicka.example');
INSERT INTO via_branchmails (bid, mail) VALUES
  (NULL, 'stravovanie@strojarne-podhradie.example'), (1, 'majster.vyroby@strojarne-podhradie.example'),
  (1, 'vydaj.vyroba@strojarne-podhradie.example'), (3, 'zlievaren@strojarne-podhradie.example');
INSERT INTO via_promailsdelay (supplierID, sendtime, daysto) VALUES
  (1, '10:15', 1), (1, '07:30', 0), (2, '14:15', 2), (2, '08:00', 1), (3, '12:45', 1), (4, '09:15', 3);

INSERT INTO via_segments (segmentID, name, start, stop, position) VALUES
  (1, 'Raňajky', '06:00', '08:30', 1),
  (2, 'Obed', '11:00', '14:00', 2),
  (3, 'Večera', '17:00', '19:30', 3);

-- kind: the place in the plan below that the dish may take; NULL = kept in the catalogue, not planned.
CREATE TEMPORARY TABLE demo_dish (
  foodID INT UNSIGNED PRIMARY KEY, kind VARCHAR(20) NULL, typeID INT UNSIGNED, supplierID INT UNSIGNED NULL, price DOUBLE,
  alergens VARCHAR(40), name VARCHAR(255), description VARCHAR(500)) DEFAULT CHARSET utf8mb4;

INSERT INTO demo_dish VALUES
  (101, 'raňajky', 8, 3, 1.90, '1,3,7,10', 'Obložený chlieb so šunkou a vajíčkom', 'Pšenično-ražný chlieb, maslo, dusená šunka, vajce natvrdo, uhorka'),
  (102, 'raňajky', 8, 3, 1.70, '1,7', 'Grahamový rožok s tvarohovou nátierkou', 'Tvarohová nátierka s pažítkou, reďkovka'),
  (103, 'raňajky', 8, 3, 1.80, '1,4,7', 'Chlieb s rybacou nátierkou', 'Nátierka zo sardiniek, maslo, cibuľa'),
  (104, 'raňajky', 8, 3, 1.60, '1,7', 'Chlieb s bryndzovou nátierkou', 'Bryndza, maslo, červená paprika, jarná cibuľka'),
  (105, 'raňajky', 8, 3, 1.90, '1,3,10', 'Chlieb s vajíčkovou nátierkou', 'Vajcia, horčica, pažítka'),
  (106, 'raňajky', 8, 3, 2.30, '1,7', 'Zapekaná bageta so šunkou a syrom', 'Pšeničná bageta, dusená šunka, eidam'),
  (107, 'raňajky', 8, 3, 1.20, '1,3,7', 'Vianočka s maslom a džemom', 'Domáca vianočka, slivkový džem'),
  (108, 'raňajky', 8, 3, 1.40, '1,7', 'Ovsená kaša so škoricou a jablkom', 'Ovsené vločky, mlieko, jablko, škorica'),
  (109, 'raňajky', 8, 3, 2.10, '1,3,7', 'Miešané vajíčka na cibuľke, chlieb', 'Tri vajcia, maslo, pažítka, dva krajce chleba'),
  (110, 'raňajky', 8, 3, 2.20, '1,10', 'Párky s horčicou, rožok', 'Bravčové párky 120 g, plnotučná horčica, dva rožky'),
  (111, 'raňajky', 8, 3, 1.50, '1,7,8', 'Biely jogurt s müsli a orechmi', 'Jogurt 200 g, zapekané müsli, vlašské orechy'),
  (112, 'raňajky', 8, 3, 1.30, '1,3,7', 'Makový závin', 'Kysnuté cesto, maková plnka'),
  (113, 'raňajky', 8, 3, 1.10, '1,7', 'Pagáč s oškvarkami', 'Škvarkový pagáč 2 ks'),
  (114, 'raňajky', 8, 3, 2.00, '1,7,11', 'Celozrnná žemľa s cícerovou nátierkou', 'Cícer, tahini, citrón, rukola'),

  (201, 'polievka', 1, 1, 1.20, '1,9', 'Slepačí vývar s rezancami', 'Silný vývar, koreňová zelenina, domáce rezance'),
  (202, 'polievka', 1, 1, 1.30, '1,7,9', 'Kapustnica s klobásou', 'Kyslá kapusta, domáca klobása, sušené huby, kyslá smotana'),
  (203, 'polievka', 1, 1, 1.10, '1,7', 'Cesnaková s krutónmi', 'Cesnak, zemiaky, strúhaný syr, opečený chlieb'),
  (204, 'polievka', 1, 1, 1.20, '1,7,9', 'Fazuľová s údeným mäsom', 'Farebná fazuľa, údené koleno, smotana'),
  (205, 'polievka', 1, 1, 1.10, '1,9', 'Šošovicová na kyslo', 'Šošovica, mrkva, bobkový list, ocot'),
  (206, 'polievka', 1, 1, 1.30, '1,9', 'Gulášová polievka', 'Hovädzie mäso, zemiaky, paprika, majorán'),
  (207, 'polievka', 1, 1, 1.10, '7,9', 'Brokolicová krémová', 'Brokolica, smotana, muškátový orech'),
  (208, 'polievka', 1, 1, 1.00, '1,9', 'Paradajková s ryžou', 'Paradajkový pretlak, ryža, bazalka'),
  (209, 'polievka', 1, 1, 1.20, '1,7', 'Demikát', 'Bryndza, zemiaky, kôpor, chlebové kocky'),
  (210, 'polievka', 1, 1, 1.10, '1,3,7', 'Zemiaková na kyslo s kôprom', 'Zemiaky, kôpor, kyslá smotana, vajce'),
  (211, 'polievka', 1, 1, 1.20, '1,3,9', 'Hovädzí vývar s pečeňovými haluškami', 'Hovädzí vývar, pečeňové halušky, petržlen'),
  (212, 'polievka', 1, 1, 1.10, '1,3,9', 'Karfiolová s vajíčkom', 'Karfiol, vajce, zápražka, petržlenová vňať'),
  (213, 'polievka', 1, 1, 1.10, '7', 'Tekvicová s pečenými semienkami', 'Tekvica hokaido, zázvor, smotana'),
  (214, 'polievka', 1, 2, 1.20, '1,9', 'Držková', 'Hovädzie držky, mletá paprika, majorán'),
  (215, 'polievka', 1, 2, 1.10, '1,9', 'Frankfurtská s párkom', 'Kapusta, párok, zemiaky'),
  (216, 'polievka', 1, 2, 1.10, '1,7', 'Hubová so smotanou', 'Lesné huby, zemiaky, rasca, smotana'),
  (217, 'polievka', 1, 2, 1.00, '1,9', 'Hrachová s opečeným chlebom', 'Žltý hrach, cesnak, chlieb'),
  (218, 'polievka', 1, 2, 1.10, '1,3,9', 'Kurací vývar s mrveničkou', 'Kurací vývar, mrvenička, zelenina'),
  (219, 'polievka', 1, 2, 1.10, '9', 'Mrkvový krém so zázvorom', 'Mrkva, zázvor, kokosové mlieko'),
  (220, 'polievka', 1, 2, 1.20, '1,4,9', 'Rybacia polievka', 'Kapor, koreňová zelenina, paprika'),

  (301, 'mäsité', 2, 1, 5.40, '1,3,7,10', 'Vyprážaný bravčový rezeň, zemiakový šalát', 'Bravčové karé 120 g, domáci zemiakový šalát s majonézou, citrón'),
  (302, 'mäsité', 2, 1, 5.60, '1,3,7,9,10', 'Sviečková na smotane, parená knedľa', 'Hovädzie zadné 100 g, koreňová omáčka, brusnice'),
  (303, 'mäsité', 2, 1, 4.90, '1,3,7', 'Kuracie na paprike, halušky', 'Kuracie stehno, smotanová papriková omáčka'),
  (304, 'mäsité', 2, 1, 5.20, '1,3,7', 'Segedínsky guláš, kysnutá knedľa', 'Bravčové pliecko 120 g, kyslá kapusta, smotana'),
  (305, 'mäsité', 2, 1, 5.30, '1', 'Hovädzí guláš, chlieb', 'Hovädzia glejovka 120 g, cibuľa, sladká paprika'),
  (306, 'mäsité', 2, 1, 5.10, '1,3', 'Pečené bravčové, dusená kapusta, knedľa', 'Bravčová krkovička 120 g, kapusta, zemiaková knedľa'),
  (307, 'mäsité', 2, 1, 4.80, '1,3,7', 'Fašírka, zemiaková kaša, uhorka', 'Mleté mäso 120 g, kaša, sterilizovaná uhorka'),
  (308, 'mäsité', 2, 1, 5.00, '1,7', 'Kurací rezeň prírodný, dusená ryža', 'Kuracie prsia 130 g, ryža, kompót'),
  (309, 'mäsité', 2, 1, 5.20, '1,3,9', 'Plnená paprika, paradajková omáčka, knedľa', 'Mleté mäso s ryžou, sladká paradajková omáčka'),
  (310, 'mäsité', 2, 1, 5.50, '1,10', 'Hovädzia roštenka na cibuli, dusená ryža', 'Hovädzia roštenka 110 g, cibuľová šťava'),
  (311, 'mäsité', 2, 1, 5.90, '1', 'Pečená kačica, červená kapusta, lokše', 'Štvrť kačice, zemiakové lokše'),
  (312, 'mäsité', 2, 1, 5.00, '3,7,10', 'Bravčové ražniči, opekané zemiaky, tatárska omáčka', 'Bravčové, slanina, cibuľa, paprika'),
  (313, 'mäsité', 2, 1, 4.90, '3,7', 'Zapekané zemiaky s klobásou a vajcom', 'Francúzske zemiaky, kyslá uhorka'),
  (314, 'mäsité', 2, 1, 4.90, '1,7', 'Špagety s mäsovou omáčkou a syrom', 'Mleté hovädzie, paradajky, tvrdý syr'),
  (315, 'mäsité', 2, 1, 5.10, '1,6,9', 'Kuracia čína so zeleninou, ryža', 'Kuracie prsia 120 g, pór, mrkva, sójová omáčka'),
  (316, 'mäsité', 2, 1, 5.40, '1,3,7', 'Morčacie soté na hubách, tarhoňa', 'Morčacie prsia 120 g, šampiňóny, smotana'),
  (317, 'mäsité', 2, 1, 5.00, '1,3,10', 'Čevapčiči, varené zemiaky, horčica, cibuľa', 'Mleté mäso 140 g'),
  (318, 'mäsité', 2, 1, 5.70, '1,3,7,9', 'Hovädzie varené, chrenová omáčka, knedľa', 'Hovädzie predné 100 g, chren, smotana'),
  (319, 'mäsité', 2, 1, 4.70, '1,3,9', 'Šošovicový prívarok s údeným mäsom, chlieb', 'Šošovica na kyslo, údené 80 g, vajce'),
  (320, 'mäsité', 2, 1, 5.30, '1,3,7', 'Kurací Cordon bleu, zemiakové pyré', 'Kuracie prsia, šunka, syr'),
  (321, 'mäsité', 2, 1, 4.60, '1,3,7', 'Bryndzové halušky so slaninou', 'Zemiakové halušky, bryndza, opražená slanina'),
  (331, 'mäsité', 2, 2, 5.10, '1,3,7,10', 'Vyprážané kuracie stehno, zemiakový šalát', 'Vykostené stehno 150 g'),
  (332, 'mäsité', 2, 2, 5.00, '', 'Pečené kura, ryža, kompót', 'Štvrť kurčaťa, broskyňový kompót'),
  (333, 'mäsité', 2, 2, 5.30, '1,3', 'Bravčový guláš s cestovinou', 'Bravčové pliecko 120 g, kolienka'),
  (334, 'mäsité', 2, 2, 5.40, '1,3,7', 'Moravský vrabec, kapusta, knedľa', 'Bravčový bôčik a pliecko, rasca'),
  (335, 'mäsité', 2, 2, 5.20, '1,3,7', 'Karbonátok plnený syrom, zemiaková kaša', 'Mleté mäso 140 g, eidam'),
  (336, 'mäsité', 2, 2, 5.60, '1,10', 'Znojemská roštenka, ryža', 'Hovädzia roštenka 110 g, uhorky'),
  (337, 'mäsité', 2, 2, 5.10, '1,3,7', 'Holandský rezeň, varené zemiaky, šalát', 'Mleté mäso so syrom 130 g'),
  (338, 'mäsité', 2, 2, 5.30, '1,7', 'Bravčové na hubách, cestovina', 'Bravčové stehno 120 g, hríby'),
  (339, 'mäsité', 2, 2, 4.90, '7,9', 'Rizoto s kuracím mäsom a hráškom', 'Kuracie 100 g, strúhaný syr, uhorka'),
  (340, 'mäsité', 2, 2, 5.50, '7', 'Kuracie prsia s broskyňou a syrom, opekané zemiaky', 'Kuracie prsia 130 g'),

  (402, 'bezmäsité', 2, 1, 4.50, '1,3,7', 'Bryndzové pirohy s kyslou smotanou', 'Pirohy plnené zemiakmi a bryndzou, cibuľka'),
  (403, 'bezmäsité', 2, 1, 4.60, '1,3,7,10', 'Vyprážaný syr, varené zemiaky, tatárska omáčka', 'Eidam 110 g, zemiaky s vňaťou'),
  (404, 'bezmäsité', 2, 1, 4.30, '1,3,7,10', 'Vyprážaný karfiol, zemiaky, tatárska omáčka', 'Ružičky karfiolu v trojobale'),
  (405, 'bezmäsité', 2, 1, 4.20, '1,3,7', 'Špenátový prívarok, vajce, zemiaky', 'Listový špenát, volské oko'),
  (406, 'bezmäsité', 2, 1, 4.20, '1,3', 'Strapačky s kyslou kapustou', 'Zemiakové halušky, kapusta, cibuľka'),
  (407, 'bezmäsité', 2, 1, 4.40, '1,7', 'Cestoviny s brokolicou a nivou', 'Penne, brokolica, syrová omáčka'),
  (408, 'bezmäsité', 2, 1, 4.10, '1,3,7', 'Zemiakové placky so zakysankou', 'Placky s cesnakom a majoránom 5 ks'),
  (409, 'bezmäsité', 2, 1, 4.30, '9', 'Zeleninové rizoto', 'Ryža, mrkva, hrášok, kukurica'),
  (410, 'bezmäsité', 2, 2, 4.40, '1,3,7', 'Tekvicový prívarok s kôprom, zemiaky, karbonátky z ovsených vločiek', 'Strúhaná tekvica, kôpor, smotana'),
  (411, 'bezmäsité', 2, 2, 4.30, '1,3,7', 'Fazuľový prívarok, volské oko, chlieb', 'Biela fazuľa, smotana'),
  (412, 'bezmäsité', 2, 2, 4.50, '1,3,7', 'Lasagne so špenátom a ricottou', 'Zapekané cestoviny'),
  (413, 'bezmäsité', 2, 2, 4.40, '1,6,11', 'Tofu so zeleninou na panvici, ryža', 'Marinované tofu 120 g, sezam'),

  (451, 'sladké', 2, 1, 3.90, '1,3,7', 'Parené buchty s makom', 'Slivkový lekvár, mak, maslo'),
  (452, 'sladké', 2, 1, 3.80, '1,3,7', 'Šišky s lekvárom', 'Kysnuté šišky 4 ks, marhuľový lekvár'),
  (453, 'sladké', 2, 1, 3.90, '1,3,7', 'Palacinky s tvarohom', 'Palacinky 3 ks, tvaroh, hrozienka'),
  (454, 'sladké', 2, 1, 3.70, '1,3,7,8', 'Šúľance s orechmi', 'Zemiakové šúľance, vlašské orechy, cukor'),
  (455, 'sladké', 2, 1, 3.90, '1,3,7', 'Slivkové gule', 'Zemiakové cesto, slivky, opražená strúhanka'),
  (456, 'sladké', 2, 1, 3.70, '1,3,7', 'Žemľovka s jablkami', 'Žemľa, jablká, hrozienka, sneh'),
  (457, 'sladké', 2, 1, 3.60, '3,7', 'Ryžový nákyp s ovocím', 'Ryža, mlieko, kompótované ovocie'),
  (458, 'sladké', 2, 1, 3.60, '1,7', 'Krupicová kaša s kakaom', 'Detská krupica, maslo, kakao'),

  (481, 'ryba', 2, 1, 5.80, '1,3,4,7', 'Vyprážané filé, zemiaková kaša', 'Treska 120 g, citrón'),
  (482, 'ryba', 2, 1, 6.20, '4,7', 'Pečený losos na masle, varené zemiaky', 'Losos 130 g, kôprové maslo'),
  (483, 'ryba', 2, 1, 5.90, '4,7', 'Pstruh na rasci, opekané zemiaky', 'Pstruh 180 g'),
  (484, 'ryba', 2, 1, 5.70, '4,7', 'Filé so syrom a paradajkou, ryža', 'Zapekané filé 130 g'),
  (485, 'ryba', 2, 2, 5.90, '1,3,4,10', 'Kapor vyprážaný, zemiakový šalát', 'Kapor 150 g'),
  (486, 'ryba', 2, 2, 5.80, '4,9', 'Zubáč na zelenine, ryža', 'Zubáč 130 g, koreňová zelenina'),
  (487, 'ryba', 2, 2, 6.40, '1,2,14', 'Morské plody na cesnaku, bageta', 'Krevety, slávky, kalmáre, cesnak'),

  (501, 'príloha', 3, 1, 1.20, '', 'Dusená ryža', '200 g'),
  (502, 'príloha', 3, 1, 1.20, '', 'Varené zemiaky s vňaťou', '250 g'),
  (503, 'príloha', 3, 1, 1.50, '', 'Opekané zemiaky', '220 g'),
  (504, 'príloha', 3, 1, 1.40, '7', 'Zemiaková kaša', '250 g'),
  (505, 'príloha', 3, 1, 1.20, '1,3,7', 'Kysnutá knedľa', '5 ks'),
  (506, 'príloha', 3, 1, 1.60, '', 'Hranolčeky', '200 g'),
  (507, 'príloha', 3, 1, 1.00, '1,3', 'Tarhoňa', '200 g'),
  (508, 'príloha', 3, 1, 0.40, '1', 'Chlieb', '2 krajce'),
  (509, 'príloha', 3, 1, 0.90, '13', 'Bezlepkový chlieb', '2 krajce, lupinová múka'),

  (551, 'šalát', 4, 1, 1.40, '', 'Uhorkový šalát', 'Šalátová uhorka, sladkokyslý nálev'),
  (552, 'šalát', 4, 1, 1.40, '', 'Paradajkový šalát s cibuľou', 'Paradajky, cibuľa, petržlen'),
  (553, 'šalát', 4, 1, 1.30, '', 'Kapustový šalát s mrkvou', 'Biela kapusta, mrkva'),
  (554, 'šalát', 4, 1, 1.50, '12', 'Cviklový šalát s chrenom', 'Cvikla, chren, rasca'),
  (555, 'šalát', 4, 1, 1.60, '7', 'Šopský šalát', 'Paradajky, uhorka, paprika, balkánsky syr'),
  (556, 'šalát', 4, 1, 1.50, '3,7,10', 'Šalát coleslaw', 'Kapusta, mrkva, jogurtová majonéza'),
  (557, 'šalát veľký', 2, 2, 4.90, '1,3,4,7,10', 'Šalát Caesar s kuracím mäsom', 'Rímsky šalát, kuracie prsia 100 g, krutóny, parmezán'),
  (558, 'šalát veľký', 2, 2, 4.80, '1,7', 'Grécky šalát s olivami a bagetou', 'Zelenina, feta, olivy'),
  (559, 'šalát veľký', 2, 2, 4.90, '3,4', 'Tuniakový šalát s vajcom', 'Tuniak, vajce, fazuľky, olivy'),
  (560, 'šalát veľký', 2, 2, 4.70, '7,8', 'Šalát s pečenou cviklou a kozím syrom', 'Cvikla, kozí syr, vlašské orechy'),

  (601, 'dezert', 5, 3, 1.30, '1,3,7', 'Jablkový koláč', 'Mrežovník so škoricou'),
  (602, 'dezert', 5, 3, 1.40, '1,3,7,8', 'Orechový závin', 'Kysnuté cesto, vlašské orechy'),
  (603, 'dezert', 5, 3, 1.50, '1,3,7', 'Tvarohový koláč s malinami', 'Krehké cesto, tvaroh, maliny'),
  (604, 'dezert', 5, 3, 1.30, '1,3,7', 'Bublanina s čerešňami', 'Piškótové cesto, čerešne'),
  (605, 'dezert', 5, 3, 1.60, '1,3,7', 'Veterník', 'Odpaľované cesto, karamelový krém'),
  (606, 'dezert', 5, 3, 1.40, '1,3,6,7', 'Kakaová roláda', 'Piškóta, kakaový krém'),
  (607, 'dezert', 5, 3, 1.20, '7', 'Vanilkový puding so šľahačkou', '200 g'),
  (608, 'dezert', 5, 3, 1.50, '1,3,7', 'Krémeš', 'Lístkové cesto, vanilkový krém'),
  (609, 'dezert', 5, 3, 1.40, '1,3,7', 'Medovník', 'Medové pláty, krém z karamelu'),
  (610, 'dezert', 5, 3, 1.30, '1,3,7,8', 'Perník s lekvárom a orechmi', 'Perníkové cesto, slivkový lekvár'),
  (611, 'dezert', 5, 3, 1.40, '1,3,5,7', 'Arašidové rezy', 'Kakaové cesto, arašidový krém'),

  (651, 'ovocie', 6, 4, 0.60, '', 'Jablko', '1 ks'),
  (652, 'ovocie', 6, 4, 0.70, '', 'Banán', '1 ks'),
  (653, 'ovocie', 6, 4, 0.70, '', 'Pomaranč', '1 ks'),
  (654, 'ovocie', 6, 4, 0.60, '', 'Hruška', '1 ks'),
  (655, 'ovocie', 6, 4, 1.60, '', 'Ovocný šalát', 'Sezónne ovocie, citrónová šťava'),

  (701, 'nápoj', 7, 4, 0.80, '', 'Jablkový mušt', '0,3 l'),
  (702, 'nápoj', 7, 4, 0.60, '', 'Minerálna voda perlivá', '0,5 l'),
  (703, 'nápoj', 7, 4, 0.60, '', 'Minerálna voda neperlivá', '0,5 l'),
  (704, 'nápoj', 7, 4, 0.90, '12', 'Domáca bazová limonáda', '0,3 l'),
  (705, 'nápoj', 7, 4, 0.90, '', 'Malinovka', '0,3 l'),
  (706, 'nápoj', 7, 4, 1.10, '7', 'Kakao', '0,3 l'),
  (707, 'nápoj', 7, 4, 0.90, '', 'Ovocný čaj', '0,3 l'),
  (708, 'nápoj', 7, 4, 1.20, '1,7', 'Biela káva z obilniny', '0,3 l'),
  (709, 'nápoj', 7, 4, 1.20, '7', 'Kefír', '0,25 l'),
  (710, 'nápoj', 7, 4, 0.70, '', 'Citrónová voda s mätou', '0,5 l'),

  (801, 'večera', 2, 1, 4.20, '1,3,7', 'Studená misa so syrom a šunkou, pečivo', 'Šunka, eidam, vajce, zelenina, dva rožky'),
  (802, 'večera', 2, 1, 4.10, '1,10', 'Klobása pečená, horčica, chren, chlieb', 'Klobása 180 g'),
  (803, 'večera', 2, 1, 4.30, '1,3,7', 'Zapekané cestoviny so šunkou', 'Kolienka, šunka, smotana, syr'),
  (804, 'večera', 2, 1, 4.00, '1,3,10', 'Vajíčkový šalát, chlieb', 'Vajcia, majonéza, pažítka'),
  (805, 'večera', 2, 1, 4.40, '1,7', 'Pizza so šunkou a šampiňónmi', 'Domáce cesto, paradajky, mozzarella'),
  (806, 'večera', 2, 1, 4.30, '1,3,7,11', 'Kurací hamburger, hranolčeky', 'Kuracia placka 120 g, žemľa so sezamom'),
  (807, 'večera', 2, 1, 4.20, '1,3,7', 'Langoš s cesnakom a syrom', 'Kysnutý langoš, smotana, eidam'),
  (808, 'večera', 2, 1, 4.50, '1,7', 'Tortilla s hovädzím mäsom a fazuľou', 'Mleté hovädzie, fazuľa, kukurica'),
  (809, 'večera', 2, 1, 3.90, '1,7', 'Tvarohové knedle s jahodami', 'Jahodová omáčka, maslo, tvaroh'),
  (810, 'večera', 2, 1, 4.10, '1', 'Tlačenka s cibuľou a octom, chlieb', 'Tlačenka 150 g'),
  (811, 'večera', 2, 2, 4.60, '3,7,10', 'Kuracie krídelká, hranolčeky, dip', 'Krídelká 300 g'),
  (812, 'večera', 2, 2, 4.40, '1', 'Zemiakový guláš s klobásou, chlieb', 'Zemiaky, klobása, paprika'),
  (813, 'večera', 2, 2, 4.50, '1,3', 'Kolienka s mäsom a kapustou', 'Cestovina, mleté mäso, kapusta'),
  (814, 'večera', 2, 2, 4.30, '1', 'Fazuľa po mexicky, chlieb', 'Fazuľa, slanina, kukurica, čili'),

  -- In the catalogue only: without a supplier, and of hostile spelling, as names that users type can be.
  (901, NULL, 7, NULL, 0.50, '7', 'Káva z automatu', ''),
  (902, NULL, 5, NULL, 0.00, '1,3,7,8', 'Oslávenecký koláč', 'Donesie oslávenec'),
  (903, NULL, 2, 2, 5.55, '1,3,7,9,10', 'Kurča "Vlado & syn" <pikantné> 100 % s \'chilli\'; 50/50', 'Skúška tlače: <b>nie je tučné</b> & úvodzovky');

INSERT INTO via_foods (foodID, typeID, supplierID, name, description, price)
  SELECT foodID, typeID, supplierID, name, description, price FROM demo_dish;
INSERT INTO via_foodalergen (foodID, alergenID) SELECT foodID, alergenID FROM demo_dish JOIN via_alergens ON FIND_IN_SET(alergenID, alergens);

-- Menus ---------------------------------------------------------------------------------------------------------------

-- What a cell of the plan holds. days: weekdays, Monday is 0. turn: how far into the list of its kind the rotation starts.
CREATE TEMPORARY TABLE demo_plan (
  bid INT UNSIGNED NULL, segmentID INT UNSIGNED, position INT UNSIGNED, kind VARCHAR(20), supplierID INT UNSIGNED, turn INT,
  days VARCHAR(20)) DEFAULT CHARSET utf8mb4;
INSERT INTO demo_plan VALUES
  (NULL, 1, 1, 'raňajky',   3, 0, '0,1,2,3,4'),
  (NULL, 1, 2, 'raňajky',   3, 5, '0,1,2,3,4'),
  (NULL, 1, 3, 'raňajky',   3, 9, '0,1,2,3,4'),
  (NULL, 1, 4, 'ovocie',    4, 0, '0,1,2,3,4'),
  (NULL, 1, 5, 'nápoj',     4, 5, '0,1,2,3,4'),
  (NULL, 1, 6, 'nápoj',     4, 8, '0,1,2,3,4'),
  (NULL, 2, 1, 'polievka',  1, 0, '0,1,2,3,4,5'),
  (NULL, 2, 2, 'mäsité',    1, 0, '0,1,2,3,4,5'),
  (NULL, 2, 3, 'mäsité',    1, 8, '0,1,2,3,4'),
  (NULL, 2, 4, 'bezmäsité', 1, 0, '0,1,2,3,4,5'),
  (NULL, 2, 5, 'sladké',    1, 0, '0,1,2,3'),
  (NULL, 2, 5, 'ryba',      1, 0, '4'),
  (NULL, 2, 6, 'príloha',   1, 0, '0,1,2,3,4'),
  (NULL, 2, 7, 'šalát',     1, 0, '0,1,2,3,4'),
  (NULL, 2, 8, 'dezert',    3, 0, '0,1,2,3,4'),
  (NULL, 2, 9, 'nápoj',     4, 0, '0,1,2,3,4'),
  (NULL, 3, 1, 'večera',    1, 0, '0,1,2,3,4'),
  (NULL, 3, 2, 'večera',    1, 4, '0,1,2,3,4'),
  (NULL, 3, 3, 'nápoj',     4, 3, '0,1,2,3,4'),
  (1, 2, 1, 'polievka',     2, 0, '0,1,2,3,4'),
  (1, 2, 2, 'mäsité',       2, 0, '0,1,2,3,4'),
  (1, 2, 3, 'mäsité',       2, 5, '0,1,2,3,4'),
  (1, 2, 4, 'bezmäsité',    2, 0, '0,1,2,3'),
  (1, 2, 4, 'ryba',         2, 0, '4'),
  (1, 2, 5, 'šalát veľký',  2, 0, '0,1,2,3,4'),
  (1, 2, 6, 'nápoj',        4, 1, '0,1,2,3,4'),
  (3, 2, 1, 'polievka',     2, 3, '0,1,2,3,4'),
  (3, 2, 2, 'mäsité',       2, 2, '0,1,2,3,4'),
  (3, 2, 3, 'mäsité',       2, 6, '0,1,2,3,4'),
  (3, 2, 4, 'bezmäsité',    2, 2, '0,1,2,3,4'),
  (3, 3, 1, 'večera',       2, 0, '0,1,2,3,4'),
  (3, 3, 2, 'večera',       2, 2, '0,1,2,3,4'),
  (3, 3, 3, 'nápoj',        4, 6, '0,1,2,3,4');

CREATE TEMPORARY TABLE demo_list (PRIMARY KEY (kind, supplierID, number)) DEFAULT CHARSET utf8mb4
  SELECT kind, supplierID, ROW_NUMBER() OVER (PARTITION BY kind, supplierID ORDER BY foodID) - 1 number,
         COUNT(*) OVER (PARTITION BY kind, supplierID) length, foodID
  FROM demo_dish WHERE kind IS NOT NULL;

-- Eight past weeks, this one and three to come: the second to come has neither dinners nor lunches of branch 3, the third
-- only the first dishes of three lunches. Prices were lower until four weeks ago.
-- Past days are locked, those of more than four weeks ago closed for good. Today and tomorrow are locked, and so are next
-- Monday and Tuesday; branch 3 has published this whole week.
INSERT INTO via_orderables (foodID, bid, segmentID, date, position, price, locked)
  SELECT l.foodID, p.bid, p.segmentID, d.date,
         ROW_NUMBER() OVER (PARTITION BY d.date, p.segmentID, p.bid ORDER BY p.position), IF(week < -4, ROUND(f.price * 0.95, 1), f.price),
         CASE WHEN week < -4 THEN 2
              WHEN d.date <= @today + INTERVAL 1 DAY OR week = 1 AND weekday < 2 OR week = 0 AND p.bid = 3 THEN 1
              ELSE 0 END
  FROM (SELECT CAST(seq AS INT) DIV 7 - 8 week, seq MOD 7 weekday, @monday + INTERVAL CAST(seq AS INT) - 56 DAY date FROM seq_0_to_83) d
  JOIN demo_plan p ON FIND_IN_SET(d.weekday, p.days)
  JOIN demo_list l ON l.kind = p.kind AND l.supplierID = p.supplierID
       AND l.number = (((d.week + 8) * 6 + d.weekday) * 3 + p.turn) MOD l.length
  JOIN via_foods f ON f.foodID = l.foodID
  WHERE week < 2
     OR week = 2 AND p.segmentID < 3 AND (p.bid IS NULL OR p.bid = 1)
     OR week = 3 AND p.segmentID = 2 AND p.bid IS NULL AND weekday < 3 AND p.position < 5
  ORDER BY d.date, p.segmentID, p.bid, p.position;

-- Orders --------------------------------------------------------------------------------------------------------------

-- What can be ordered; choice numbers the meals of a cell, of which a guest takes one.
CREATE TEMPORARY TABLE demo_item (PRIMARY KEY (orderableID), KEY (date, segmentID, bidKey))
  SELECT orderableID, IFNULL(bid, 0) bidKey, segmentID, date, typeID,
         t.name IN ('Hlavné jedlo', 'Raňajkové jedlo') meal,
         ROW_NUMBER() OVER (PARTITION BY date, segmentID, bid, t.typeID ORDER BY orderableID) - 1 choice,
         COUNT(*) OVER (PARTITION BY date, segmentID, bid, t.typeID) choices
  FROM via_orderables JOIN via_foods USING (foodID) JOIN via_types t USING (typeID)
  WHERE locked > 0 AND t.informative = 0;

-- Who eats when, and from which menu: as a rule that of the own branch, where there is one. chance is a number from 0 to
-- 9999, the same for a person, a day and a service at every run.
CREATE TEMPORARY TABLE demo_guest
  SELECT uid, date, segmentID, chance,
         IFNULL((SELECT MIN(b.bid) FROM brape b
                 JOIN via_orderables o ON o.bid = b.bid AND o.date = guests.date AND o.segmentID = guests.segmentID AND o.locked > 0
                 WHERE b.uid = guests.uid AND chance DIV 100 MOD 10 < 6), 0) bidKey
  FROM (SELECT p.uid, d.date, d.segmentID,
               CRC32(CONCAT_WS('/', p.uid, DATEDIFF(d.date, @monday), d.segmentID)) MOD 10000 chance
        FROM people p
        JOIN (SELECT DISTINCT date, segmentID FROM demo_item) d
             ON p.`begin` <= UNIX_TIMESTAMP(d.date) AND (IFNULL(p.`end`, 0) = 0 OR p.`end` >= UNIX_TIMESTAMP(d.date))
        WHERE p.status > 0 OR d.date < @monday - INTERVAL 14 DAY) guests
  WHERE chance MOD 100 < CASE segmentID WHEN 1 THEN 24 WHEN 3 THEN 10 ELSE IF(WEEKDAY(date) = 5, 14, 74) END;

-- A guest takes one meal and, one time in five, each of the other things. Orders are entered one to four days before, those
-- for the days to come at the latest now. The services that are closed for good have been delivered.
INSERT INTO via_orders (orderableID, uid, quantity, ordered, delivered)
  SELECT orderableID, uid, IF(chance MOD 29 = 0, 2, 1),
         CONCAT('ZEP-adminID: ', 1 + chance MOD 3, ', ', DATE_FORMAT(moment, '%e.%c.%Y, %k:'), MINUTE(moment), ':', SECOND(moment)),
         IF(locked = 2, TIMESTAMP(date, start) + INTERVAL chance MOD 5400 SECOND, NULL)
  FROM (SELECT i.orderableID, g.uid, g.chance, o.locked, o.date, s.start,
               LEAST(TIMESTAMP(g.date, '06:00') - INTERVAL 1 + chance MOD 4 DAY + INTERVAL chance * 3 SECOND,
                     NOW() - INTERVAL chance MOD 3600 SECOND) moment
        FROM demo_guest g
        JOIN demo_item i ON i.date = g.date AND i.segmentID = g.segmentID AND i.bidKey = g.bidKey
        JOIN via_orderables o ON o.orderableID = i.orderableID
        JOIN via_segments s ON s.segmentID = o.segmentID
        WHERE IF(meal, i.choice = g.chance DIV 7 MOD i.choices, (g.chance DIV (2 + i.typeID) + i.choice) MOD 5 = 0)) guests
  ORDER BY moment, orderableID, uid;

-- Limits: roomy ones on salads; of next Monday's lunches the first is used up and the second has one portion left.
UPDATE via_orderables o JOIN demo_dish d ON d.foodID = o.foodID
  SET o.`limit` = 20 + (SELECT IFNULL(SUM(quantity), 0) FROM via_orders r WHERE r.orderableID = o.orderableID) DIV 5 * 5
  WHERE d.kind IN ('šalát', 'šalát veľký');
UPDATE via_orderables o
  SET o.`limit` = (SELECT SUM(quantity) FROM via_orders r WHERE r.orderableID = o.orderableID) + o.position - 2
  WHERE o.bid IS NULL AND o.segmentID = 2 AND o.date = @monday + INTERVAL 7 DAY AND o.position IN (2, 3);

DROP TEMPORARY TABLE demo_person, demo_dish, demo_plan, demo_list, demo_item, demo_guest;
