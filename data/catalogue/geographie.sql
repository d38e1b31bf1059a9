-- The federation's geography of France (tables Inter_Region, Region and
-- Departement) of the model base. A club code reads
-- FRA i rr ddd nnnn: the inter-region digit i, the region rr, the department
-- ddd, the federal number nnnn.
--
-- Inter_Region: the inter-regions that grouped the regional leagues of the
-- French Swimming Federation (FFN) before the 2016 regional reform: seven
-- metropolitan groups named by compass point, numbered 1 to 7, and 8 for the
-- overseas leagues. Which league lies in which group is our reconstruction (no
-- FFN table was at hand); it can be changed here without touching the
-- program. The row 0 "Null" lets the digit 0 of a federal selection
-- (FRA0000000000) or of a foreign code pass the validation; the lists leave it
-- out by its name.
-- Region: the FFN's regional leagues of that time (Provence apart from Côte
-- d'Azur, Lyonnais apart from Dauphiné-Savoie, one Normandie), overseas ones
-- included.
-- Code: two digits, the first one being the digit of the region's
-- inter-region ("11" Alsace in inter-region 1, "41" Île-de-France in 4, "86"
-- La Réunion in 8), so that a code's positions 4 and 5 always agree. "00"
-- "Null" (inter-region 0) is the region zone of a code that has none; the lists
-- leave it out by its name. Pays.Code_Reg points here for NCL (84) and TAH (85).
-- Departement: every department on three characters: "001" to "095" with "02A"
-- and "02B" for Corsica (no "020"), the overseas departments "971" to "974" and
-- "976", and the overseas collectivities that a league covers: "977"
-- Saint-Barthélemy and "978" Saint-Martin (Guadeloupe), "987" Polynésie
-- française, "988" Nouvelle-Calédonie. Each lies in exactly one region.
--
-- Names: in French, upper and lower case with their accents, as a French user
-- writes them; every name is unique within its table, since the program finds
-- a code back from the chosen name.

-- Inter-regions.
INSERT INTO Inter_Region (Code, Libelle) VALUES (0, 'Null');
INSERT INTO Inter_Region (Code, Libelle) VALUES (1, 'Nord-Est');
INSERT INTO Inter_Region (Code, Libelle) VALUES (2, 'Nord-Ouest');
INSERT INTO Inter_Region (Code, Libelle) VALUES (3, 'Nord');
INSERT INTO Inter_Region (Code, Libelle) VALUES (4, 'Île-de-France');
INSERT INTO Inter_Region (Code, Libelle) VALUES (5, 'Centre-Est');
INSERT INTO Inter_Region (Code, Libelle) VALUES (6, 'Sud-Est');
INSERT INTO Inter_Region (Code, Libelle) VALUES (7, 'Sud-Ouest');
INSERT INTO Inter_Region (Code, Libelle) VALUES (8, 'Outre-Mer');

-- Regions (leagues), by inter-region.
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('00', 'Null', 0);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('11', 'Alsace', 1);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('12', 'Bourgogne', 1);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('13', 'Champagne-Ardenne', 1);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('14', 'Franche-Comté', 1);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('15', 'Lorraine', 1);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('21', 'Bretagne', 2);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('22', 'Centre', 2);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('23', 'Normandie', 2);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('24', 'Pays de la Loire', 2);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('31', 'Nord-Pas-de-Calais', 3);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('32', 'Picardie', 3);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('41', 'Île-de-France', 4);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('51', 'Auvergne', 5);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('52', 'Dauphiné-Savoie', 5);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('53', 'Lyonnais', 5);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('61', 'Corse', 6);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('62', 'Côte d''Azur', 6);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('63', 'Languedoc-Roussillon', 6);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('64', 'Provence', 6);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('71', 'Aquitaine', 7);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('72', 'Limousin', 7);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('73', 'Midi-Pyrénées', 7);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('74', 'Poitou-Charentes', 7);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('81', 'Guadeloupe', 8);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('82', 'Guyane', 8);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('83', 'Martinique', 8);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('84', 'Nouvelle-Calédonie', 8);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('85', 'Polynésie française', 8);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('86', 'La Réunion', 8);
INSERT INTO Region (Code, Libelle, CodeInter) VALUES ('87', 'Mayotte', 8);

-- Departments, by number.
INSERT INTO Departement (Code, Libelle, Region) VALUES ('001', 'Ain', '53');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('002', 'Aisne', '32');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('003', 'Allier', '51');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('004', 'Alpes-de-Haute-Provence', '64');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('005', 'Hautes-Alpes', '64');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('006', 'Alpes-Maritimes', '62');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('007', 'Ardèche', '52');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('008', 'Ardennes', '13');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('009', 'Ariège', '73');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('010', 'Aube', '13');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('011', 'Aude', '63');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('012', 'Aveyron', '73');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('013', 'Bouches-du-Rhône', '64');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('014', 'Calvados', '23');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('015', 'Cantal', '51');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('016', 'Charente', '74');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('017', 'Charente-Maritime', '74');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('018', 'Cher', '22');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('019', 'Corrèze', '72');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('02A', 'Corse-du-Sud', '61');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('02B', 'Haute-Corse', '61');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('021', 'Côte-d''Or', '12');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('022', 'Côtes-d''Armor', '21');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('023', 'Creuse', '72');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('024', 'Dordogne', '71');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('025', 'Doubs', '14');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('026', 'Drôme', '52');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('027', 'Eure', '23');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('028', 'Eure-et-Loir', '22');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('029', 'Finistère', '21');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('030', 'Gard', '63');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('031', 'Haute-Garonne', '73');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('032', 'Gers', '73');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('033', 'Gironde', '71');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('034', 'Hérault', '63');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('035', 'Ille-et-Vilaine', '21');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('036', 'Indre', '22');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('037', 'Indre-et-Loire', '22');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('038', 'Isère', '52');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('039', 'Jura', '14');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('040', 'Landes', '71');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('041', 'Loir-et-Cher', '22');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('042', 'Loire', '53');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('043', 'Haute-Loire', '51');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('044', 'Loire-Atlantique', '24');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('045', 'Loiret', '22');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('046', 'Lot', '73');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('047', 'Lot-et-Garonne', '71');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('048', 'Lozère', '63');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('049', 'Maine-et-Loire', '24');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('050', 'Manche', '23');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('051', 'Marne', '13');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('052', 'Haute-Marne', '13');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('053', 'Mayenne', '24');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('054', 'Meurthe-et-Moselle', '15');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('055', 'Meuse', '15');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('056', 'Morbihan', '21');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('057', 'Moselle', '15');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('058', 'Nièvre', '12');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('059', 'Nord', '31');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('060', 'Oise', '32');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('061', 'Orne', '23');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('062', 'Pas-de-Calais', '31');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('063', 'Puy-de-Dôme', '51');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('064', 'Pyrénées-Atlantiques', '71');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('065', 'Hautes-Pyrénées', '73');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('066', 'Pyrénées-Orientales', '63');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('067', 'Bas-Rhin', '11');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('068', 'Haut-Rhin', '11');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('069', 'Rhône', '53');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('070', 'Haute-Saône', '14');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('071', 'Saône-et-Loire', '12');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('072', 'Sarthe', '24');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('073', 'Savoie', '52');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('074', 'Haute-Savoie', '52');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('075', 'Paris', '41');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('076', 'Seine-Maritime', '23');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('077', 'Seine-et-Marne', '41');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('078', 'Yvelines', '41');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('079', 'Deux-Sèvres', '74');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('080', 'Somme', '32');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('081', 'Tarn', '73');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('082', 'Tarn-et-Garonne', '73');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('083', 'Var', '62');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('084', 'Vaucluse', '64');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('085', 'Vendée', '24');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('086', 'Vienne', '74');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('087', 'Haute-Vienne', '72');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('088', 'Vosges', '15');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('089', 'Yonne', '12');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('090', 'Territoire de Belfort', '14');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('091', 'Essonne', '41');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('092', 'Hauts-de-Seine', '41');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('093', 'Seine-Saint-Denis', '41');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('094', 'Val-de-Marne', '41');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('095', 'Val-d''Oise', '41');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('971', 'Guadeloupe', '81');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('972', 'Martinique', '83');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('973', 'Guyane', '82');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('974', 'La Réunion', '86');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('976', 'Mayotte', '87');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('977', 'Saint-Barthélemy', '81');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('978', 'Saint-Martin', '81');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('987', 'Polynésie française', '85');
INSERT INTO Departement (Code, Libelle, Region) VALUES ('988', 'Nouvelle-Calédonie', '84');
