-- Schema, fourth of four files: purchases, payables, and the receivables that the reports read.

-- Lines of purchases; a purchase is the lines with one cdfor, serie, nfiscal and modelo. idlan is the clock.
-- vfinal and vfrete are per unit. status: N open, S closed. dtv (expiry) is null on a product without lot control.
-- qtest is read before a line is taken back, and written by nobody.
CREATE TABLE insumos_cmp (
    idlic   VARCHAR(20) NOT NULL,
    idlan   VARCHAR(40) NOT NULL,
    cdfor   INT,
    serie   INT,
    nfiscal BIGINT,
    modelo  INT,
    dte     DATE,
    dtc     DATE,
    cdpro   VARCHAR(40),
    vfinal  DECIMAL(15, 4),
    vfrete  DECIMAL(15, 4) NOT NULL DEFAULT 0,
    qtde    DECIMAL(15, 4),
    status  CHAR(1) NOT NULL DEFAULT 'N',
    evcad   VARCHAR(100),
    lote    VARCHAR(100),
    dtv     DATE,
    qtest   DECIMAL(15, 4) NOT NULL DEFAULT 0,
    PRIMARY KEY (idlic, idlan),
    KEY (idlic, cdfor, serie, nfiscal, modelo),
    KEY (idlic, status, cdfor, serie, nfiscal, modelo),
    KEY (idlic, status, dte),
    KEY (idlic, cdpro, lote, dtv)
);

-- Instalments; a document is the rows with one nrdoc and cdfor. idlan is parcela ("001/003"), nrdoc and cdfor
-- joined by "/". pago: N open, X taken into a receipt (nrrec) that is not closed, S settled. The insertion names
-- neither pago nor nrrec nor the settlement's values: the defaults are what the settlement looks for.
CREATE TABLE cpagar (
    idlic   VARCHAR(20) NOT NULL,
    idlan   VARCHAR(140) NOT NULL,
    nrdoc   VARCHAR(100) NOT NULL,
    refdoc  VARCHAR(200),
    cdfor   INT NOT NULL,
    dte     DATE,
    obs     VARCHAR(1000),
    cdcen   INT,
    cdscen  INT,
    dtv     DATE,
    vrorig  DECIMAL(15, 2) NOT NULL DEFAULT 0,
    vrpg    DECIMAL(15, 2) NOT NULL DEFAULT 0,
    vrab    DECIMAL(15, 2) NOT NULL DEFAULT 0,
    parcela VARCHAR(10),
    evcad   VARCHAR(100),
    pago    CHAR(1) NOT NULL DEFAULT 'N',
    nrrec   VARCHAR(40) NOT NULL DEFAULT 'em aberto',
    dtp     DATE,
    vrj     DECIMAL(15, 2) NOT NULL DEFAULT 0,
    vrd     DECIMAL(15, 2) NOT NULL DEFAULT 0,
    PRIMARY KEY (idlic, idlan),
    KEY (idlic, nrdoc, cdfor),
    KEY (idlic, cdfor, pago, dtv),
    KEY (idlic, pago, dtv),
    KEY (idlic, pago, dtp, parcela),
    KEY (idlic, nrrec, pago)
);

-- Payments of settlements; cdmp is the first three letters of the means of payment.
CREATE TABLE cpagar_recibos (
    idreg INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic VARCHAR(20) NOT NULL,
    nrrec VARCHAR(40),
    dtbx  DATE,
    cdmp  VARCHAR(10),
    obs   VARCHAR(1000),
    valor DECIMAL(15, 2),
    evcad VARCHAR(100),
    KEY (idlic, nrrec)
);

-- Receivables: the accounts report and the list of pending receipts read these three tables, no screen fills them.
CREATE TABLE clientes (
    cdcli INT NOT NULL PRIMARY KEY,
    nmcli VARCHAR(150),
    idlic VARCHAR(20) NOT NULL
);

-- Without a tenant: the report reads it whole.
CREATE TABLE creceber (
    idreg     INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    cdcli     INT,
    nrdoc     VARCHAR(100),
    dte       DATE,
    dtv       DATE,
    vrorig    DECIMAL(15, 2) NOT NULL DEFAULT 0,
    juros     DECIMAL(15, 2) NOT NULL DEFAULT 0,
    descontos DECIMAL(15, 2) NOT NULL DEFAULT 0,
    vrpg      DECIMAL(15, 2) NOT NULL DEFAULT 0,
    vrab      DECIMAL(15, 2) NOT NULL DEFAULT 0,
    pago      CHAR(1) NOT NULL DEFAULT 'N',
    KEY (pago, dtv)
);

-- status: X receipt not closed, S settled.
CREATE TABLE creceber_recibos (
    idreg     INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    cdcli     INT,
    nrdoc     VARCHAR(100),
    nrrec     VARCHAR(40),
    dtbx      DATE,
    dtv       DATE,
    vrab      DECIMAL(15, 2) NOT NULL DEFAULT 0,
    vrpg      DECIMAL(15, 2) NOT NULL DEFAULT 0,
    juros     DECIMAL(15, 2) NOT NULL DEFAULT 0,
    descontos DECIMAL(15, 2) NOT NULL DEFAULT 0,
    status    CHAR(1),
    idlic     VARCHAR(20) NOT NULL,
    KEY (idlic, status, nrrec)
);
