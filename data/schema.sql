-- The catalogue. Any SQLite tool may read and write it: no triggers, no collation of ours, no
-- constraint but the primary keys (links to rows that are gone and repeated names all occur).
-- AUTOINCREMENT: an identifier is never given out twice, so a link cannot find the wrong song.
-- The page size suits scans over long song texts.
PRAGMA page_size = 16384;
PRAGMA encoding = 'UTF-8';

CREATE TABLE MUSICA (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    TITULO TEXT,
    REFERENCIA TEXT,
    MUSICA TEXT,
    MUSICA2 TEXT,
    TOM TEXT,
    VARIACAO TEXT,
    CATEGORIA SMALLINT,
    CONTADOR INTEGER DEFAULT 0
);

CREATE TABLE TEMA (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    DESCRICAO TEXT,
    ORDEM SMALLINT,
    COR TEXT
);

CREATE TABLE TEMA_MUSICA (
    ID_MUSICA INTEGER,
    ID_TEMA INTEGER
);

CREATE TABLE LISTA (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    NOME TEXT,
    DATA DATE
);

CREATE TABLE LISTA_MUSICA (
    ID_LISTA INTEGER,
    ID_MUSICA INTEGER,
    ORDEM SMALLINT
);

CREATE TABLE TOM (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    NOTA TEXT,
    ORDEM SMALLINT,
    MAIS TEXT
);

CREATE TABLE VARIACAO (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    NOMENCLATURA TEXT
);

CREATE INDEX TEMA_MUSICA_POR_MUSICA ON TEMA_MUSICA (ID_MUSICA);
CREATE INDEX TEMA_MUSICA_POR_TEMA ON TEMA_MUSICA (ID_TEMA);
CREATE INDEX LISTA_MUSICA_POR_LISTA ON LISTA_MUSICA (ID_LISTA);

-- All that a list of songs shows, so that a start reads no song texts. It holds every song; its
-- condition keeps it from statements that do not ask for it, which count on the order of the IDs.
CREATE INDEX MUSICA_LISTAGEM ON MUSICA (TITULO, REFERENCIA, TOM, VARIACAO, CATEGORIA, CONTADOR)
    WHERE typeof(ID) = 'integer';
