-- The event catalogue (table Nage) of the model base: the events of French
-- swimming competitions (FFN), individual and relay.
--
-- Codes. A women's event has a code from 0 to 49, the same men's event that
-- code plus 50. The tens follow the stroke, so that the individual
-- entry panel (rows 0 to 49) and the relay time rule
-- (the 50, 100 and 200 m of a stroke are its unit 1, 2 and 3, back +10,
-- breast +20, fly +30) find them:
--   0 to 6    free (nage libre): 25, 50, 100, 200, 400, 800, 1500 m
--   10 to 13  back (dos): 25, 50, 100, 200 m
--   20 to 23  breast (brasse): 25, 50, 100, 200 m
--   30 to 33  fly (papillon): 25, 50, 100, 200 m
--   40 to 42  medley (4 nages): 100, 200, 400 m
--   7, 8, 9   relays 4x50, 4x100, 4x200 m free
--   43, 44    relays 4x50, 4x100 m medley
--   45 to 49  mixed relays 4x50, 4x100, 4x200 m free, 4x50, 4x100 m medley
--             (no sex: Sexe is the empty text and Mixte is true, and the codes
--             95 to 99 stay free)
-- Rows 0, 10, 20, 30 and 40 (and 50, 60, 70, 80, 90 for men) are the events
-- swum only in a 25 m pool: the 25 m of each stroke and the 100 m medley.
-- They alone have Possible_50 false.
--
-- Labels. "<distance>m <stroke> <Dames|Mess.|Mixte>", a relay
-- "4x<distance>m <stroke> ...", the strokes "n.l.", "dos", "brasse", "pap."
-- and "4N": at most 17 characters, the width of an event on the entry slip,
-- so that no label is cut there. The relay time rule reads the distance of one
-- swimmer between the first "x" and the first "m" of the label, and a free
-- relay by the text "n.l.". Distance is the whole distance in metres (400 for
-- a 4x100 m), used as a sort key and for the split-time headings of results.

INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (0, '25m n.l. Dames', 1, 'F', 0, 25, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (1, '50m n.l. Dames', 1, 'F', 0, 50, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (2, '100m n.l. Dames', 1, 'F', 0, 100, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (3, '200m n.l. Dames', 1, 'F', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (4, '400m n.l. Dames', 1, 'F', 0, 400, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (5, '800m n.l. Dames', 1, 'F', 0, 800, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (6, '1500m n.l. Dames', 1, 'F', 0, 1500, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (7, '4x50m n.l. Dames', 4, 'F', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (8, '4x100m n.l. Dames', 4, 'F', 0, 400, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (9, '4x200m n.l. Dames', 4, 'F', 0, 800, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (10, '25m dos Dames', 1, 'F', 0, 25, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (11, '50m dos Dames', 1, 'F', 0, 50, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (12, '100m dos Dames', 1, 'F', 0, 100, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (13, '200m dos Dames', 1, 'F', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (20, '25m brasse Dames', 1, 'F', 0, 25, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (21, '50m brasse Dames', 1, 'F', 0, 50, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (22, '100m brasse Dames', 1, 'F', 0, 100, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (23, '200m brasse Dames', 1, 'F', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (30, '25m pap. Dames', 1, 'F', 0, 25, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (31, '50m pap. Dames', 1, 'F', 0, 50, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (32, '100m pap. Dames', 1, 'F', 0, 100, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (33, '200m pap. Dames', 1, 'F', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (40, '100m 4N Dames', 1, 'F', 0, 100, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (41, '200m 4N Dames', 1, 'F', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (42, '400m 4N Dames', 1, 'F', 0, 400, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (43, '4x50m 4N Dames', 4, 'F', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (44, '4x100m 4N Dames', 4, 'F', 0, 400, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (45, '4x50m n.l. Mixte', 4, '', 1, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (46, '4x100m n.l. Mixte', 4, '', 1, 400, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (47, '4x200m n.l. Mixte', 4, '', 1, 800, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (48, '4x50m 4N Mixte', 4, '', 1, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (49, '4x100m 4N Mixte', 4, '', 1, 400, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (50, '25m n.l. Mess.', 1, 'M', 0, 25, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (51, '50m n.l. Mess.', 1, 'M', 0, 50, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (52, '100m n.l. Mess.', 1, 'M', 0, 100, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (53, '200m n.l. Mess.', 1, 'M', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (54, '400m n.l. Mess.', 1, 'M', 0, 400, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (55, '800m n.l. Mess.', 1, 'M', 0, 800, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (56, '1500m n.l. Mess.', 1, 'M', 0, 1500, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (57, '4x50m n.l. Mess.', 4, 'M', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (58, '4x100m n.l. Mess.', 4, 'M', 0, 400, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (59, '4x200m n.l. Mess.', 4, 'M', 0, 800, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (60, '25m dos Mess.', 1, 'M', 0, 25, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (61, '50m dos Mess.', 1, 'M', 0, 50, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (62, '100m dos Mess.', 1, 'M', 0, 100, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (63, '200m dos Mess.', 1, 'M', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (70, '25m brasse Mess.', 1, 'M', 0, 25, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (71, '50m brasse Mess.', 1, 'M', 0, 50, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (72, '100m brasse Mess.', 1, 'M', 0, 100, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (73, '200m brasse Mess.', 1, 'M', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (80, '25m pap. Mess.', 1, 'M', 0, 25, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (81, '50m pap. Mess.', 1, 'M', 0, 50, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (82, '100m pap. Mess.', 1, 'M', 0, 100, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (83, '200m pap. Mess.', 1, 'M', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (90, '100m 4N Mess.', 1, 'M', 0, 100, 0);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (91, '200m 4N Mess.', 1, 'M', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (92, '400m 4N Mess.', 1, 'M', 0, 400, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (93, '4x50m 4N Mess.', 4, 'M', 0, 200, 1);
INSERT INTO Nage (Code_Nage, Libelle, Nb_nageurs, Sexe, Mixte, Distance, Possible_50) VALUES (94, '4x100m 4N Mess.', 4, 'M', 0, 400, 1);
