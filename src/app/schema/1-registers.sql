-- Schema, first of four files: accounts and registers. The server's command line client loads the files in the
-- order of their names into the empty database that the caller has chosen.
--
-- Rules of all four files
--   * idlic is the tenant. Tables and single statements that lack it are told where they occur; every other
--     statement filters on it first, so every index except a numbering key begins with it.
--   * A server-numbered code is AUTO_INCREMENT and alone its table's primary key. A key that the program composes
--     is text. A table that the program gives no key has idreg, so that a row can be changed by its primary key.
--   * No foreign keys: documents outlive the rows they were copied from, and the screens delete in any order.
--   * Strict mode refuses what a column cannot hold, and a refused statement ends the program. Therefore the boxes of
--     the screens take what is said here of a column, in their property "limit": change both together. A code or
--     date column is text only where a statement can put an empty or odd text into it; such columns say so.
--   * Dates are DATE (the server reads yyyy/mm/dd), money has two decimals, quantities and unit values four.
--   * Stamps (evcad, evup, upev) hold a user's name and a date-time, and are never split.

-- unicode_ci: an accent, a cedilla or a small letter makes no difference when a name is looked for ('%JOSE%'
-- finds JOSÉ), and names sort as in Portuguese. It also ignores blanks at the end in '=', which the permission
-- names, padded to 20, rely on; MySQL's own default collation does not.
ALTER DATABASE CHARACTER SET utf8mb4 COLLATE utf8mb4_unicode_ci;
SET default_storage_engine = InnoDB;

-- Login accounts. The password is compared exactly, case included. The screen's limit of 10 characters for the
-- name can be passed by, so the column is longer.
CREATE TABLE usuarios (
    idlic     VARCHAR(20) NOT NULL,
    nmusuario VARCHAR(60) NOT NULL,
    ususenha  VARCHAR(60) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin,
    evcad     VARCHAR(100),
    evup      VARCHAR(100),
    PRIMARY KEY (idlic, nmusuario)
);

-- One row per account and menu entry. campo is the entry's name padded with blanks to 20, kept as written
-- (CHAR would drop the blanks). valor: 0 granted, 1 withheld.
CREATE TABLE perfilusuario (
    idlic     VARCHAR(20) NOT NULL,
    nmusuario VARCHAR(60) NOT NULL,
    ususenha  VARCHAR(60) CHARACTER SET utf8mb4 COLLATE utf8mb4_bin,
    campo     VARCHAR(20) NOT NULL,
    valor     CHAR(1),
    evcad     VARCHAR(100),
    PRIMARY KEY (idlic, nmusuario, campo)
);

-- Insurance plans; pdesc is the discount percentage that the agenda applies. An appointment's price has room for what
-- comes of it.
CREATE TABLE convenios (
    idconv INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic  VARCHAR(20) NOT NULL,
    nmconv VARCHAR(150),
    pdesc  DECIMAL(7, 4),
    evcad  VARCHAR(100),
    evup   VARCHAR(100),
    KEY (idlic, nmconv)
);

CREATE TABLE especialidades (
    idesp INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic VARCHAR(20) NOT NULL,
    nmesp VARCHAR(150),
    evcad VARCHAR(100),
    evup  VARCHAR(100),
    KEY (idlic, nmesp)
);

-- Procedures; ondeatd: 0 clinic, 1 home. The agenda reads this table by ondeatd alone, of all tenants.
CREATE TABLE procedimentos (
    idproc  INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic   VARCHAR(20) NOT NULL,
    nmproc  VARCHAR(150),
    ondeatd CHAR(1),
    evcad   VARCHAR(100),
    evup    VARCHAR(100),
    KEY (idlic, nmproc),
    KEY (idlic, ondeatd, nmproc)
);

-- Product groups.
CREATE TABLE grupoestoque (
    cdgrupo INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic   VARCHAR(20) NOT NULL,
    dsgrupo VARCHAR(150),
    evcad   VARCHAR(100),
    evup    VARCHAR(100),
    KEY (idlic, dsgrupo)
);

-- Cost centres. An edit writes evcad again.
CREATE TABLE centrocusto (
    cdcen INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic VARCHAR(20) NOT NULL,
    nmcen VARCHAR(150),
    evcad VARCHAR(100),
    KEY (idlic, nmcen)
);

-- Sub cost centres; nothing links one to a cost centre.
CREATE TABLE subcentrocusto (
    cdscen INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic  VARCHAR(20) NOT NULL,
    nmscen VARCHAR(150),
    evcad  VARCHAR(100),
    KEY (idlic, nmscen)
);

-- Patients. A contract copies most of these columns: none of them may be wider than its namesake in contrato.
CREATE TABLE pacientes (
    idpac    INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic    VARCHAR(20) NOT NULL,
    dtcad    DATE,
    cpf      VARCHAR(30),
    rg       VARCHAR(30),
    dtnasc   DATE,
    nmPac    VARCHAR(150),
    fonepac  VARCHAR(50),
    fonecel  VARCHAR(50),
    eMail    VARCHAR(150),
    cep      VARCHAR(20),
    rua      VARCHAR(150),
    nrrua    VARCHAR(30),
    bairro   VARCHAR(100),
    cidade   VARCHAR(100),
    uf       VARCHAR(20),
    nmresp   VARCHAR(150),
    foneresp VARCHAR(50),
    idconv   INT,
    taler    CHAR(1),
    dsaler   VARCHAR(500),
    tmed     CHAR(1),
    dsmed    VARCHAR(500),
    tcir     CHAR(1),
    dscir    VARCHAR(500),
    obs      TEXT,
    evup     VARCHAR(100),
    KEY (idlic, nmPac)
);

-- Professionals; ondeatd: 0 clinic, 1 home, 2 both. valor is the price of a consultation.
CREATE TABLE profissionais (
    idpro    INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic    VARCHAR(20) NOT NULL,
    dtcad    DATE,
    cpf      VARCHAR(30),
    rg       VARCHAR(30),
    dtnasc   DATE,
    nmpro    VARCHAR(150),
    fonefixo VARCHAR(50),
    fonecel  VARCHAR(50),
    eMail    VARCHAR(150),
    cep      VARCHAR(20),
    rua      VARCHAR(150),
    nrrua    VARCHAR(30),
    bairro   VARCHAR(100),
    cidade   VARCHAR(100),
    uf       VARCHAR(20),
    idesp    INT,
    nrcon    VARCHAR(40),
    valor    DECIMAL(15, 2),
    ondeatd  CHAR(1),
    obs      TEXT,
    evup     VARCHAR(100),
    KEY (idlic, nmpro)
);

-- Working hours: the slots of a professional's weekday and place, joined by "/". A day may have several rows.
-- idpro 0 is the row that all home care shares; the first character of dia is the weekday, 1 for Sunday.
CREATE TABLE diahr (
    idreg   INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic   VARCHAR(20) NOT NULL,
    idpro   INT NOT NULL,
    dia     VARCHAR(30),
    hr      VARCHAR(2000),
    ondeatd CHAR(1),
    idesp   INT,
    evcad   VARCHAR(100),
    evup    VARCHAR(100),
    KEY (idlic, idpro, ondeatd, dia)
);

-- Holidays, which return every year.
CREATE TABLE feriados (
    idlic VARCHAR(20) NOT NULL,
    dia   INT NOT NULL,
    Mes   INT NOT NULL,
    nMes  VARCHAR(30),
    obs   VARCHAR(500),
    evcad VARCHAR(100),
    evup  VARCHAR(100),
    PRIMARY KEY (idlic, dia, Mes),
    KEY (idlic, Mes, dia)
);

CREATE TABLE fornecedores (
    cdfor    INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic    VARCHAR(20) NOT NULL,
    nmfor    VARCHAR(150),
    nmfant   VARCHAR(150),
    cpf      VARCHAR(30),
    rg       VARCHAR(30),
    fonefixo VARCHAR(50),
    fonecel  VARCHAR(50),
    email    VARCHAR(150),
    rua      VARCHAR(150),
    nrcasa   VARCHAR(30),
    bairro   VARCHAR(100),
    cidade   VARCHAR(100),
    uf       VARCHAR(20),
    obs      TEXT,
    cep      VARCHAR(20),
    evcad    VARCHAR(100),
    upev     VARCHAR(100),
    KEY (idlic, nmfor),
    KEY (idlic, nmfant)
);

-- Products and supplies. The code is the user's text ("0012"). Purchases, prescriptions and deliveries join it
-- without the tenant, therefore the primary key begins with the code.
-- dtucmp is a text: "SR" on a new product. caplote: 0 lot and expiry controlled, 1 not.
CREATE TABLE produtos (
    cdpro   VARCHAR(40) NOT NULL,
    idlic   VARCHAR(20) NOT NULL,
    dspro   VARCHAR(200),
    un      VARCHAR(20),
    cdgrupo INT,
    vcusto  DECIMAL(15, 4),
    dtucmp  VARCHAR(20),
    qmin    DECIMAL(15, 4),
    caplote CHAR(1),
    obs     TEXT,
    evcad   VARCHAR(100),
    evup    VARCHAR(100),
    PRIMARY KEY (cdpro, idlic),
    KEY (idlic, dspro)
);

-- Allocator of product codes, without tenant: cdpror is the token by which the asker finds its row again.
CREATE TABLE produtoscodigos (
    cdpro  INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    cdpror VARCHAR(40),
    evcad  VARCHAR(100),
    KEY (cdpror)
);
