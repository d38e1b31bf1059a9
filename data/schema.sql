-- Plouvarine: schema of the model base "modele_base.sav".
--
-- Every table of the base, with its columns in the order that
-- its owner subsystem gives (some statements insert or read by position: Licence,
-- Rcomp, Relais, Liffn, Liffn_relais, Activite_licence, Rcomp_tempo).
--
-- Conventions of the file:
--   auto-numbered keys       INTEGER PRIMARY KEY AUTOINCREMENT
--   yes/no columns           BOOLEAN, holding 0 and 1 (read back as "Vrai"/"Faux")
--   swim times, amounts      DOUBLE (time value m.sscc)
--   whole numbers, keys      INTEGER
--   texts and text dates     TEXT COLLATE NOCASE (the program replaces NOCASE
--                            with its accent-aware comparison)
-- No foreign keys. The one cascade, the change of a club's federal code, is the
-- trigger at the end of this file. Each statement ends with a semicolon at the
-- end of a line, and no other line does.


-- ---------------------------------------------------------------------------
-- Frame
-- ---------------------------------------------------------------------------

-- Info: the one row of the base. Version of the base (a number, compared with
-- the required version 4), clean-close flag (true at rest, false in use), and
-- the season opening date (yyyymmdd) of the last licence roll-over.
CREATE TABLE Info (
    Version      DOUBLE,
    LastClose    BOOLEAN DEFAULT 1,
    LastUpdtLic  TEXT COLLATE NOCASE DEFAULT ''
);


-- ---------------------------------------------------------------------------
-- Clubs, profiles and pools
-- ---------------------------------------------------------------------------

-- Profil: a working profile, bound to one club. The one with LastUse true is
-- the current profile. It also keeps the settings of the performance monitor
-- window (position, refresh interval, always visible).
CREATE TABLE Profil (
    Num                  INTEGER PRIMARY KEY AUTOINCREMENT,
    Libelle              TEXT COLLATE NOCASE,
    Code_club            TEXT COLLATE NOCASE,
    LastUse              BOOLEAN DEFAULT 0,
    lgPosXSuivi          INTEGER DEFAULT 0,
    lgPosYSuivi          INTEGER DEFAULT 0,
    lgIntervalSuivi      INTEGER DEFAULT 1000,
    bAlwaysVisibleSuivi  BOOLEAN DEFAULT 0
);

-- Club: the register of clubs and selections (departmental, regional,
-- inter-regional or federal teams, whose 13-character federal code ends in
-- "0000"). A soft-deleted club has Visible false and holds its own Num as code.
-- Adresse to Mail are the own club's details.
CREATE TABLE Club (
    Num           INTEGER PRIMARY KEY AUTOINCREMENT,
    Code_federal  TEXT COLLATE NOCASE,
    Intitule      TEXT COLLATE NOCASE,
    Selection     BOOLEAN DEFAULT 0,
    Visible       BOOLEAN DEFAULT 1,
    Adresse       TEXT COLLATE NOCASE,
    Code_Postal   TEXT COLLATE NOCASE,
    Ville         TEXT COLLATE NOCASE,
    Telephone     TEXT COLLATE NOCASE,
    Fax           TEXT COLLATE NOCASE,
    Mail          TEXT COLLATE NOCASE
);

-- Pays: the countries, by 3-letter code ("FRA") and French name. Code_Reg is
-- the region to which an overseas country is attached. Reference data.
CREATE TABLE Pays (
    Code      TEXT COLLATE NOCASE,
    Libelle   TEXT COLLATE NOCASE,
    Code_Reg  TEXT COLLATE NOCASE
);

-- Inter_Region: the federation's inter-regions, one digit. The row of Code 0
-- named "Null" lets the digit 0 pass the club code validation. Reference data.
CREATE TABLE Inter_Region (
    Code     INTEGER,
    Libelle  TEXT COLLATE NOCASE
);

-- Region: the federation's regions (ligues), two characters, each in its
-- inter-region (CodeInter). Reference data.
CREATE TABLE Region (
    Code       TEXT COLLATE NOCASE,
    Libelle    TEXT COLLATE NOCASE,
    CodeInter  INTEGER
);

-- Departement: the departments (comités départementaux), three characters,
-- each in its region. Reference data.
CREATE TABLE Departement (
    Code     TEXT COLLATE NOCASE,
    Libelle  TEXT COLLATE NOCASE,
    Region   TEXT COLLATE NOCASE
);

-- Dirigeant: the officers of the own club (role, name, telephones, e-mail).
-- Suppr marks the old rows during a save of the club form.
CREATE TABLE Dirigeant (
    Code_federal  TEXT COLLATE NOCASE,
    Fonction      TEXT COLLATE NOCASE,
    Nom           TEXT COLLATE NOCASE,
    Tel1          TEXT COLLATE NOCASE,
    Tel2          TEXT COLLATE NOCASE,
    Mail          TEXT COLLATE NOCASE,
    Suppr         BOOLEAN DEFAULT 0
);

-- Tarifs: the membership fees of the own club, amount in euros. A licence
-- names its fee by Intitule.
CREATE TABLE Tarifs (
    Code_federal  TEXT COLLATE NOCASE,
    Intitule      TEXT COLLATE NOCASE,
    Tarif         DOUBLE,
    Suppr         BOOLEAN DEFAULT 0
);

-- Activites: the activities of the own club (swimming school, masters...),
-- one row per activity and person in charge.
CREATE TABLE Activites (
    Code_federal  TEXT COLLATE NOCASE,
    Activite      TEXT COLLATE NOCASE,
    Responsable   TEXT COLLATE NOCASE,
    Suppr         BOOLEAN DEFAULT 0
);

-- Piscine: the pools where competitions take place (lanes, length 25 or 50 m).
-- The row named "Null" is the piscine de référence, which stands for no pool.
CREATE TABLE Piscine (
    Num          INTEGER PRIMARY KEY AUTOINCREMENT,
    Nom          TEXT COLLATE NOCASE,
    Adresse      TEXT COLLATE NOCASE,
    Code_Postal  TEXT COLLATE NOCASE,
    Ville        TEXT COLLATE NOCASE,
    NbCouloir    INTEGER,
    Bassin       INTEGER
);


-- ---------------------------------------------------------------------------
-- Licences
-- ---------------------------------------------------------------------------

-- Licence: one swimmer's federation licence in one club: identity, address,
-- licence number (five digits and a letter), affiliations, deposit dates,
-- kind and nature of the licence, fee and medical check. The row named "Null"
-- is the licence nulle, which fills the empty places of a relay. Soft-deleted
-- with Visible false and the day of deletion in Date_suppr (no default: a row
-- never deleted has no date). The order of the columns is part of the design.
CREATE TABLE Licence (
    Num                INTEGER PRIMARY KEY AUTOINCREMENT,
    Code_club          TEXT COLLATE NOCASE,
    Licence            TEXT COLLATE NOCASE,
    Nom                TEXT COLLATE NOCASE,
    Prenom             TEXT COLLATE NOCASE,
    Sexe               TEXT COLLATE NOCASE,
    Date_Naissance     TEXT COLLATE NOCASE,
    Nationalite        TEXT COLLATE NOCASE,
    Adresse            TEXT COLLATE NOCASE,
    Suite_adresse      TEXT COLLATE NOCASE,
    Code_Postal        TEXT COLLATE NOCASE,
    Localite           TEXT COLLATE NOCASE,
    Telephone          TEXT COLLATE NOCASE,
    Sportive           TEXT COLLATE NOCASE,
    Synchro            TEXT COLLATE NOCASE,
    Water_Polo         TEXT COLLATE NOCASE,
    Plongeon           TEXT COLLATE NOCASE,
    Dirigeant          TEXT COLLATE NOCASE,
    Maitre             TEXT COLLATE NOCASE,
    Date_Depot         TEXT COLLATE NOCASE,
    Date_obliteration  TEXT COLLATE NOCASE,
    Type_licence       TEXT COLLATE NOCASE,
    Nature             TEXT COLLATE NOCASE,
    Code_unique        TEXT COLLATE NOCASE,
    Visible            BOOLEAN DEFAULT 1,
    Date_suppr         TEXT COLLATE NOCASE,
    Tel2               TEXT COLLATE NOCASE,
    Mail               TEXT COLLATE NOCASE,
    Tarif              TEXT COLLATE NOCASE,
    Medecin            TEXT COLLATE NOCASE,
    Date_Ctrl_Medical  TEXT COLLATE NOCASE
);

-- Activite_licence: the activities of the own club that a swimmer takes part
-- in, by name. Inserted by position: (Num_lic, Activite).
CREATE TABLE Activite_licence (
    Num_lic   INTEGER,
    Activite  TEXT COLLATE NOCASE
);

-- Selection: membership of a swimmer (Num_Lic) in a selection club (Code_Sel),
-- the swimmer's own licence staying in the home club. Suppr: marked for
-- removal in an open list. Visible false: the swimmer has left the selection.
CREATE TABLE Selection (
    Code_Sel  TEXT COLLATE NOCASE,
    Num_Lic   INTEGER,
    Suppr     BOOLEAN DEFAULT 0,
    Visible   BOOLEAN DEFAULT 1
);


-- ---------------------------------------------------------------------------
-- Competitions and programmes
-- ---------------------------------------------------------------------------

-- Rcomp: the competitions the club goes to: organiser's number, type
-- ("C" championnats, "I" interclubs), name, first and last day, place, pool
-- length and lanes, the four codifications (Q/R/A), Deroule once it has begun,
-- Visible false once retired or deleted, and the pool. Read by position.
CREATE TABLE Rcomp (
    AutoNum      INTEGER PRIMARY KEY AUTOINCREMENT,
    Num          TEXT COLLATE NOCASE,
    Type         TEXT COLLATE NOCASE,
    Nom          TEXT COLLATE NOCASE,
    Debut        TEXT COLLATE NOCASE,
    Fin          TEXT COLLATE NOCASE,
    Lieu         TEXT COLLATE NOCASE,
    Longueur     INTEGER,
    Nb_couloir   INTEGER DEFAULT 8,
    Codif_fede   TEXT COLLATE NOCASE,
    Codif_inter  TEXT COLLATE NOCASE,
    Codif_reg    TEXT COLLATE NOCASE,
    Codif_depar  TEXT COLLATE NOCASE,
    Deroule      BOOLEAN DEFAULT 0,
    Visible      BOOLEAN DEFAULT 1,
    Num_Piscine  INTEGER
);

-- Nage: the catalogue of events (épreuves): stroke and distance, swimmers per
-- event (1, or 4 for a relay), sex ("F", "M", "" for mixed), mixed flag,
-- distance in metres (a relay's whole distance) and whether the event exists in
-- a 50 m pool. Women's codes 0 to 49, men's the same plus 50. The rows come
-- from catalogue/nage.sql, the program never writes them.
CREATE TABLE Nage (
    Code_Nage    INTEGER PRIMARY KEY,
    Libelle      TEXT COLLATE NOCASE,
    Nb_nageurs   INTEGER DEFAULT 1,
    Sexe         TEXT COLLATE NOCASE DEFAULT '',
    Mixte        BOOLEAN DEFAULT 0,
    Distance     INTEGER,
    Possible_50  BOOLEAN DEFAULT 1
);

-- Pcomp: the programme of a competition, one row per event swum: the day,
-- the kind of classification (1 time, 2 semi-finals, 3 heats and finals,
-- 4 quarter-finals, 8 eighth-finals), the number of finals, finals for all
-- or by category ("T", "C", " ") and the running order.
CREATE TABLE Pcomp (
    Num_compet    INTEGER,
    Code_epreuve  INTEGER,
    JourCourse    INTEGER,
    Type          INTEGER,
    Nb_finales    INTEGER,
    Type_finale   TEXT COLLATE NOCASE,
    Num_ordre     INTEGER DEFAULT 0
);

-- Modele_prog: a named programme model, owned by a profile. Suppr marks it
-- during a deletion pass.
CREATE TABLE Modele_prog (
    NumAuto     INTEGER PRIMARY KEY AUTOINCREMENT,
    Nom_modele  TEXT COLLATE NOCASE,
    Num_profil  INTEGER,
    Suppr       BOOLEAN DEFAULT 0
);

-- Pcomp_modele: the programme lines of a programme model, as in Pcomp.
CREATE TABLE Pcomp_modele (
    Num_modele    INTEGER,
    Code_epreuve  INTEGER,
    JourCourse    INTEGER,
    Type          INTEGER,
    Nb_finales    INTEGER,
    Type_finale   TEXT COLLATE NOCASE,
    Num_ordre     INTEGER DEFAULT 0
);


-- ---------------------------------------------------------------------------
-- Entries
-- ---------------------------------------------------------------------------

-- Engag: the individual entries (engagements) of a profile in a competition,
-- one row per swimmer and event, with the team, the entry time and the
-- performance it comes from (date, place, pool). Time, date and place stay
-- empty until the swimmer is reviewed.
CREATE TABLE Engag (
    Num_compet      INTEGER,
    Num_profil      INTEGER,
    Code_epreuve    INTEGER,
    Num_Lic         INTEGER,
    Num_equipe      INTEGER DEFAULT 0,
    Equipe_mixte    BOOLEAN DEFAULT 0,
    Tps_engagement  DOUBLE,
    Date_perf       TEXT COLLATE NOCASE,
    Lieu_perf       TEXT COLLATE NOCASE,
    Bassin          INTEGER
);

-- Engag_nageur: the swimmers of a competition's teams (interclubs), one row
-- per swimmer: team number (0 and not mixed: individual), mixed flag, and the
-- snapshot of both taken for the undo of an editing pass.
CREATE TABLE Engag_nageur (
    Num_compet    INTEGER,
    Num_profil    INTEGER,
    Num_Lic       INTEGER,
    Equipe        INTEGER DEFAULT 0,
    Equipe_m      BOOLEAN DEFAULT 0,
    Old_equipe    INTEGER DEFAULT 0,
    Old_equipe_m  BOOLEAN DEFAULT 0
);

-- Engag_equipe: the number of men's, women's and mixed teams that a profile
-- enters in a competition, with their snapshot for undo.
CREATE TABLE Engag_equipe (
    Num_compet    INTEGER,
    Num_profil    INTEGER,
    Eq_Homme      INTEGER DEFAULT 0,
    Eq_Femme      INTEGER DEFAULT 0,
    Eq_Mixte      INTEGER DEFAULT 0,
    Old_Eq_Homme  INTEGER DEFAULT 0,
    Old_Eq_Femme  INTEGER DEFAULT 0,
    Old_Eq_Mixte  INTEGER DEFAULT 0
);

-- Relais: the relay entries, one row per relay: Num_Lic is the relay's running
-- number within the team and event, Tps the entry time, Licence1 to Licence10
-- the swimmers in order (the licence nulle in an empty place). Written by
-- position: the order of the columns is part of the design.
CREATE TABLE Relais (
    Num_profil    INTEGER,
    Num_compet    INTEGER,
    Code_epreuve  INTEGER,
    Num_Lic       INTEGER,
    Num_equipe    INTEGER DEFAULT 0,
    Equipe_mixte  BOOLEAN DEFAULT 0,
    Tps           DOUBLE DEFAULT 0,
    Licence1      INTEGER,
    Licence2      INTEGER,
    Licence3      INTEGER,
    Licence4      INTEGER,
    Licence5      INTEGER,
    Licence6      INTEGER,
    Licence7      INTEGER,
    Licence8      INTEGER,
    Licence9      INTEGER,
    Licence10     INTEGER
);

-- Modele_engag: a named entry model (teams, swimmers and events without
-- times), owned by a profile. Suppr marks it during a deletion pass.
CREATE TABLE Modele_engag (
    NumAuto     INTEGER PRIMARY KEY AUTOINCREMENT,
    Nom_modele  TEXT COLLATE NOCASE,
    Num_profil  INTEGER,
    Suppr       BOOLEAN DEFAULT 0
);

-- Engag_modele: the individual entries of an entry model.
CREATE TABLE Engag_modele (
    Num_modele    INTEGER,
    Code_epreuve  INTEGER,
    Num_Lic       INTEGER,
    Num_equipe    INTEGER DEFAULT 0,
    Equipe_mixte  BOOLEAN DEFAULT 0
);

-- Engag_nageur_modele: the team swimmers of an entry model, as Engag_nageur.
CREATE TABLE Engag_nageur_modele (
    Num_modele    INTEGER,
    Num_Lic       INTEGER,
    Equipe        INTEGER DEFAULT 0,
    Equipe_m      BOOLEAN DEFAULT 0,
    Old_equipe    INTEGER DEFAULT 0,
    Old_equipe_m  BOOLEAN DEFAULT 0
);

-- Engag_equipe_modele: the team counts of an entry model, as Engag_equipe.
CREATE TABLE Engag_equipe_modele (
    Num_modele    INTEGER,
    Eq_Homme      INTEGER DEFAULT 0,
    Eq_Femme      INTEGER DEFAULT 0,
    Eq_Mixte      INTEGER DEFAULT 0,
    Old_Eq_Homme  INTEGER DEFAULT 0,
    Old_Eq_Femme  INTEGER DEFAULT 0,
    Old_Eq_Mixte  INTEGER DEFAULT 0
);


-- ---------------------------------------------------------------------------
-- Results, performances and records
-- ---------------------------------------------------------------------------

-- Prres: the individual results of a competition, one row per swim of one
-- swimmer in one race (heat, final...): time or status code (91 and over),
-- FFN points, kind of race, heat, lane, category and up to 14 split times.
CREATE TABLE Prres (
    Num_compet            INTEGER,
    Code_epreuve          INTEGER,
    Num_Lic               INTEGER,
    Code_club             TEXT COLLATE NOCASE,
    Num_equipe            INTEGER DEFAULT 0,
    Tps                   DOUBLE DEFAULT 0,
    Cotation_FFN          INTEGER DEFAULT 0,
    Type_course           TEXT COLLATE NOCASE,
    Numero_serie          INTEGER,
    Numero_couloir        INTEGER,
    Numero_ordre_couloir  INTEGER,
    Num_categorie         INTEGER,
    Inter1                DOUBLE DEFAULT 0,
    Inter2                DOUBLE DEFAULT 0,
    Inter3                DOUBLE DEFAULT 0,
    Inter4                DOUBLE DEFAULT 0,
    Inter5                DOUBLE DEFAULT 0,
    Inter6                DOUBLE DEFAULT 0,
    Inter7                DOUBLE DEFAULT 0,
    Inter8                DOUBLE DEFAULT 0,
    Inter9                DOUBLE DEFAULT 0,
    Inter10               DOUBLE DEFAULT 0,
    Inter11               DOUBLE DEFAULT 0,
    Inter12               DOUBLE DEFAULT 0,
    Inter13               DOUBLE DEFAULT 0,
    Inter14               DOUBLE DEFAULT 0
);

-- Prres_relais: the relay results of a competition, one row per relay team in
-- one race. Num_Lic is the relay's number, not a swimmer.
CREATE TABLE Prres_relais (
    Num_compet            INTEGER,
    Code_epreuve          INTEGER,
    Num_Lic               INTEGER,
    Code_club             TEXT COLLATE NOCASE,
    Num_equipe            INTEGER DEFAULT 0,
    Tps                   DOUBLE DEFAULT 0,
    Cotation_FFN          INTEGER DEFAULT 0,
    Type_course           TEXT COLLATE NOCASE,
    Numero_serie          INTEGER,
    Numero_couloir        INTEGER,
    Numero_ordre_couloir  INTEGER,
    Num_categorie         INTEGER,
    Inter1                DOUBLE DEFAULT 0,
    Inter2                DOUBLE DEFAULT 0,
    Inter3                DOUBLE DEFAULT 0,
    Inter4                DOUBLE DEFAULT 0,
    Inter5                DOUBLE DEFAULT 0,
    Inter6                DOUBLE DEFAULT 0,
    Inter7                DOUBLE DEFAULT 0,
    Inter8                DOUBLE DEFAULT 0,
    Inter9                DOUBLE DEFAULT 0,
    Inter10               DOUBLE DEFAULT 0,
    Inter11               DOUBLE DEFAULT 0,
    Inter12               DOUBLE DEFAULT 0,
    Inter13               DOUBLE DEFAULT 0,
    Inter14               DOUBLE DEFAULT 0
);

-- Categori: the age categories of a competition's results file.
CREATE TABLE Categori (
    Num_compet  INTEGER,
    Num_cat     INTEGER,
    Libelle     TEXT COLLATE NOCASE
);

-- Liffn: a swimmer's performance history, one row per performance: event,
-- club, pool, date, time, place, the four codifications (Q/R/A/" "), "R" for a
-- first relay leg, split-time flag, age, competition (0 for one keyed in by
-- hand) and manual number. The manual insert writes by position.
CREATE TABLE Liffn (
    Code_epreuve    INTEGER,
    Code_club       TEXT COLLATE NOCASE,
    Num_Lic         INTEGER,
    Type_bassin     INTEGER,
    Date_perf       TEXT COLLATE NOCASE,
    Tps             DOUBLE,
    Lieu            TEXT COLLATE NOCASE,
    Codif_Fede      TEXT COLLATE NOCASE DEFAULT ' ',
    Codif_Inter     TEXT COLLATE NOCASE DEFAULT ' ',
    Codif_Reg       TEXT COLLATE NOCASE DEFAULT ' ',
    Codif_Depart    TEXT COLLATE NOCASE DEFAULT ' ',
    Passage_relais  TEXT COLLATE NOCASE DEFAULT ' ',
    Tps_inter       BOOLEAN DEFAULT 0,
    Age_perf        INTEGER,
    Num_compet      INTEGER DEFAULT 0,
    NumManuel       INTEGER DEFAULT 0
);

-- Liffn_relais: the club's relay performance history, one row per relay swim,
-- with the swimmers in leg order (the licence nulle beyond the team). The
-- manual insert writes by position.
CREATE TABLE Liffn_relais (
    Code_epreuve  INTEGER,
    Code_club     TEXT COLLATE NOCASE,
    Num_Lic       INTEGER,
    Type_bassin   INTEGER,
    Date_perf     TEXT COLLATE NOCASE,
    Tps           DOUBLE,
    Lieu          TEXT COLLATE NOCASE,
    Relayeur1     INTEGER,
    Relayeur2     INTEGER,
    Relayeur3     INTEGER,
    Relayeur4     INTEGER,
    Relayeur5     INTEGER,
    Relayeur6     INTEGER,
    Relayeur7     INTEGER,
    Relayeur8     INTEGER,
    Relayeur9     INTEGER,
    Relayeur10    INTEGER,
    Codif_Fede    TEXT COLLATE NOCASE DEFAULT ' ',
    Codif_Inter   TEXT COLLATE NOCASE DEFAULT ' ',
    Codif_Reg     TEXT COLLATE NOCASE DEFAULT ' ',
    Codif_Depart  TEXT COLLATE NOCASE DEFAULT ' ',
    Num_compet    INTEGER DEFAULT 0,
    NumManuel     INTEGER DEFAULT 0
);

-- Categori_record_club: the age bands in which a club keeps its records, by
-- sex ("Homme", "Femme", "Mixte"). Old marks the former bands during a save.
CREATE TABLE Categori_record_club (
    Num_cat    INTEGER PRIMARY KEY AUTOINCREMENT,
    Code_Club  TEXT COLLATE NOCASE,
    Libelle    TEXT COLLATE NOCASE,
    Age_inf    INTEGER,
    Age_sup    INTEGER,
    Sexe       TEXT COLLATE NOCASE,
    Old        BOOLEAN DEFAULT 0
);

-- RecordClub: the club's records and their history, by band, event and pool:
-- time, holder (free text, or the team for a relay), date, place and the
-- relay swimmers' names (" " where there is none). The club is that of the band.
CREATE TABLE RecordClub (
    Num_auto   INTEGER PRIMARY KEY AUTOINCREMENT,
    Categorie  INTEGER,
    Code_nage  INTEGER,
    Bassin     INTEGER,
    Tps        DOUBLE,
    Nom        TEXT COLLATE NOCASE,
    Prenom     TEXT COLLATE NOCASE,
    Date_perf  TEXT COLLATE NOCASE,
    Lieu       TEXT COLLATE NOCASE,
    Rel1       TEXT COLLATE NOCASE DEFAULT ' ',
    Rel2       TEXT COLLATE NOCASE DEFAULT ' ',
    Rel3       TEXT COLLATE NOCASE DEFAULT ' ',
    Rel4       TEXT COLLATE NOCASE DEFAULT ' ',
    Rel5       TEXT COLLATE NOCASE DEFAULT ' ',
    Rel6       TEXT COLLATE NOCASE DEFAULT ' ',
    Rel7       TEXT COLLATE NOCASE DEFAULT ' ',
    Rel8       TEXT COLLATE NOCASE DEFAULT ' ',
    Rel9       TEXT COLLATE NOCASE DEFAULT ' ',
    Rel10      TEXT COLLATE NOCASE DEFAULT ' '
);


-- ---------------------------------------------------------------------------
-- Work tables: what a window has set aside so that its Cancel can
-- take it back. Emptied at each Save and Archive. No keys: the same row may be
-- staged again.
-- ---------------------------------------------------------------------------

-- Licence_tempo: the swimmers removed in the licence list while it is open.
CREATE TABLE Licence_tempo (
    Num        INTEGER,
    Code_Club  TEXT COLLATE NOCASE,
    Licence    TEXT COLLATE NOCASE,
    Nom        TEXT COLLATE NOCASE,
    Prenom     TEXT COLLATE NOCASE
);

-- Pcomp_tempo: programme lines written for the detail display of the
-- programme window. The columns of Pcomp.
CREATE TABLE Pcomp_tempo (
    Num_compet    INTEGER,
    Code_epreuve  INTEGER,
    JourCourse    INTEGER,
    Type          INTEGER,
    Nb_finales    INTEGER,
    Type_finale   TEXT COLLATE NOCASE,
    Num_ordre     INTEGER DEFAULT 0
);

-- Rcomp_tempo: the competitions hidden during one deletion pass. The columns
-- of Rcomp in their order (filled by INSERT ... SELECT Rcomp.*), AutoNum kept
-- as a plain number.
CREATE TABLE Rcomp_tempo (
    AutoNum      INTEGER,
    Num          TEXT COLLATE NOCASE,
    Type         TEXT COLLATE NOCASE,
    Nom          TEXT COLLATE NOCASE,
    Debut        TEXT COLLATE NOCASE,
    Fin          TEXT COLLATE NOCASE,
    Lieu         TEXT COLLATE NOCASE,
    Longueur     INTEGER,
    Nb_couloir   INTEGER,
    Codif_fede   TEXT COLLATE NOCASE,
    Codif_inter  TEXT COLLATE NOCASE,
    Codif_reg    TEXT COLLATE NOCASE,
    Codif_depar  TEXT COLLATE NOCASE,
    Deroule      BOOLEAN,
    Visible      BOOLEAN,
    Num_Piscine  INTEGER
);

-- Relais_tempo: the relay entries of a competition as they stood when an
-- entry window opened. The columns of Relais in their order (copied both
-- ways with SELECT *).
CREATE TABLE Relais_tempo (
    Num_profil    INTEGER,
    Num_compet    INTEGER,
    Code_epreuve  INTEGER,
    Num_Lic       INTEGER,
    Num_equipe    INTEGER,
    Equipe_mixte  BOOLEAN,
    Tps           DOUBLE,
    Licence1      INTEGER,
    Licence2      INTEGER,
    Licence3      INTEGER,
    Licence4      INTEGER,
    Licence5      INTEGER,
    Licence6      INTEGER,
    Licence7      INTEGER,
    Licence8      INTEGER,
    Licence9      INTEGER,
    Licence10     INTEGER
);

-- Engag_tempo: the individual entries as they stood when an entry window
-- opened (for a model, Num_compet holds the model's number). The columns of
-- Engag in their order, so that a copy with SELECT * goes both ways, and the
-- five columns that the model statements name are among them.
CREATE TABLE Engag_tempo (
    Num_compet      INTEGER,
    Num_profil      INTEGER,
    Code_epreuve    INTEGER,
    Num_Lic         INTEGER,
    Num_equipe      INTEGER DEFAULT 0,
    Equipe_mixte    BOOLEAN DEFAULT 0,
    Tps_engagement  DOUBLE,
    Date_perf       TEXT COLLATE NOCASE,
    Lieu_perf       TEXT COLLATE NOCASE,
    Bassin          INTEGER
);


-- ---------------------------------------------------------------------------
-- Indexes for the lookups of the lists and histories. Only columns of ASCII
-- codes and numbers, apart from the swimmers' family names (stored in
-- capitals without accents).
-- ---------------------------------------------------------------------------

CREATE INDEX idx_Club_Code_federal ON Club (Code_federal);
CREATE INDEX idx_Profil_Code_club ON Profil (Code_club);
CREATE INDEX idx_Licence_Code_club ON Licence (Code_club, Licence);
CREATE INDEX idx_Licence_Nom ON Licence (Nom);
CREATE INDEX idx_Licence_Code_club_Nom ON Licence (Code_club, Nom, Prenom);
CREATE INDEX idx_Activite_licence_Num_lic ON Activite_licence (Num_lic);
CREATE INDEX idx_Selection_Code_Sel ON Selection (Code_Sel, Num_Lic);
CREATE INDEX idx_Selection_Num_Lic ON Selection (Num_Lic);
CREATE INDEX idx_Pcomp_Num_compet ON Pcomp (Num_compet, Code_epreuve);
CREATE INDEX idx_Pcomp_modele_Num_modele ON Pcomp_modele (Num_modele);
CREATE INDEX idx_Engag_compet_profil ON Engag (Num_compet, Num_profil, Num_Lic);
CREATE INDEX idx_Engag_Num_Lic ON Engag (Num_Lic);
CREATE INDEX idx_Engag_nageur_compet_profil ON Engag_nageur (Num_compet, Num_profil, Num_Lic);
CREATE INDEX idx_Engag_equipe_compet_profil ON Engag_equipe (Num_compet, Num_profil);
CREATE INDEX idx_Relais_compet_profil ON Relais (Num_compet, Num_profil, Code_epreuve);
CREATE INDEX idx_Engag_modele_Num_modele ON Engag_modele (Num_modele, Num_Lic);
CREATE INDEX idx_Engag_nageur_modele_Num_modele ON Engag_nageur_modele (Num_modele, Num_Lic);
CREATE INDEX idx_Prres_compet_epreuve ON Prres (Num_compet, Code_epreuve);
CREATE INDEX idx_Prres_relais_compet_epreuve ON Prres_relais (Num_compet, Code_epreuve);
CREATE INDEX idx_Categori_Num_compet ON Categori (Num_compet, Num_cat);
-- A swimmer's performances by event, fastest first: the proposal of an entry
-- time and the relay times read them in that order without sorting.
CREATE INDEX idx_Liffn_Num_Lic ON Liffn (Num_Lic, Code_epreuve, Tps);
CREATE INDEX idx_Liffn_Num_compet ON Liffn (Num_compet, NumManuel);
CREATE INDEX idx_Liffn_relais_Code_club ON Liffn_relais (Code_club, Code_epreuve);
CREATE INDEX idx_Liffn_relais_Num_compet ON Liffn_relais (Num_compet, NumManuel);
CREATE INDEX idx_Categori_record_club_Code_Club ON Categori_record_club (Code_Club);
CREATE INDEX idx_RecordClub_Categorie ON RecordClub (Categorie, Code_nage, Bassin);


-- ---------------------------------------------------------------------------
-- The cascade of a club's federal code. When Club.Code_federal
-- changes (a new code typed in, or a deleted club that takes its own Num as
-- code), every row that holds the old code takes the new one: profiles,
-- licences, officers, fees, activities, selection memberships, record bands,
-- results and performances, and the licences set aside in Licence_tempo.
-- The statements of the body start their lines with the semicolon that
-- separates them, so that only END closes a line with one.
-- ---------------------------------------------------------------------------

CREATE TRIGGER Club_Code_federal_cascade
AFTER UPDATE OF Code_federal ON Club
WHEN OLD.Code_federal IS NOT NEW.Code_federal
BEGIN
    UPDATE Profil SET Code_club = NEW.Code_federal WHERE Code_club = OLD.Code_federal
  ; UPDATE Licence SET Code_club = NEW.Code_federal WHERE Code_club = OLD.Code_federal
  ; UPDATE Dirigeant SET Code_federal = NEW.Code_federal WHERE Code_federal = OLD.Code_federal
  ; UPDATE Tarifs SET Code_federal = NEW.Code_federal WHERE Code_federal = OLD.Code_federal
  ; UPDATE Activites SET Code_federal = NEW.Code_federal WHERE Code_federal = OLD.Code_federal
  ; UPDATE Selection SET Code_Sel = NEW.Code_federal WHERE Code_Sel = OLD.Code_federal
  ; UPDATE Categori_record_club SET Code_Club = NEW.Code_federal WHERE Code_Club = OLD.Code_federal
  ; UPDATE Prres SET Code_club = NEW.Code_federal WHERE Code_club = OLD.Code_federal
  ; UPDATE Prres_relais SET Code_club = NEW.Code_federal WHERE Code_club = OLD.Code_federal
  ; UPDATE Liffn SET Code_club = NEW.Code_federal WHERE Code_club = OLD.Code_federal
  ; UPDATE Liffn_relais SET Code_club = NEW.Code_federal WHERE Code_club = OLD.Code_federal
  ; UPDATE Licence_tempo SET Code_Club = NEW.Code_federal WHERE Code_Club = OLD.Code_federal
  ; END;


-- ---------------------------------------------------------------------------
-- Content of a new base: the Info row, version 4, at rest, no
-- licence roll-over yet. No club, no profile, no licence.
-- ---------------------------------------------------------------------------

INSERT INTO Info (Version, LastClose, LastUpdtLic) VALUES (5, 1, '');
