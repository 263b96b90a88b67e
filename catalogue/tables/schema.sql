-- The six tables of the catalogue. Every value is stored as text; the declared type decides how a
-- column compares and sorts: by bytes when the type holds CHAR, TEXT, CLOB or BLOB, by value otherwise.

CREATE TABLE categories (
    ID INTEGER PRIMARY KEY,
    TREE_ID INTEGER,
    parent VARCHAR(10),
    title_ge VARCHAR(255),
    title_en VARCHAR(255),
    title_fr VARCHAR(255),
    title_sp VARCHAR(255),
    title_it VARCHAR(255),
    firstLevelId INTEGER,
    catLevel2 INTEGER,
    catLevel3 INTEGER,
    catLevel4 INTEGER,
    catLevel5 INTEGER
);

CREATE TABLE products_global (
    ID INTEGER PRIMARY KEY,
    artNr VARCHAR(50),
    isSet VARCHAR(5),
    length DOUBLE,
    sCm VARCHAR(50),
    sInch VARCHAR(50),
    availability INTEGER,
    filePath VARCHAR(255),
    groupId INTEGER,
    helpId VARCHAR(50),
    img1 VARCHAR(100),
    img1Scale DOUBLE,
    img2 VARCHAR(100),
    img2Scale DOUBLE,
    img3 VARCHAR(100),
    img3Scale DOUBLE
);

CREATE TABLE products_localized (
    ID INTEGER,
    lang VARCHAR(2),
    name VARCHAR(255),
    form VARCHAR(255)
);

CREATE TABLE products2categories (
    prodID INTEGER,
    catID INTEGER
);

CREATE TABLE products2sets (
    iSetID INTEGER,
    iProdGlobId INTEGER,
    iAmount INTEGER,
    iOrder INTEGER
);

CREATE TABLE reference_numbers (
    ID INTEGER,
    sRefNo VARCHAR(50),
    sUnternehmen VARCHAR(100)
);

CREATE INDEX products_global_artNr ON products_global (artNr);
CREATE INDEX products_localized_ID_lang ON products_localized (ID, lang);
CREATE INDEX products2categories_catID ON products2categories (catID);
CREATE INDEX products2sets_iSetID ON products2sets (iSetID);
CREATE INDEX reference_numbers_ID ON reference_numbers (ID);
