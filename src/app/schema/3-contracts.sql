-- Schema, third of four files: home-care contracts.

-- Contracts. A row is born as a copy of its patient; idcontrato is the clock and the patient's code.
-- status: 0 quotation, 1 in force, 2 concluded.
CREATE TABLE contrato (
    idlic      VARCHAR(20) NOT NULL,
    idcontrato VARCHAR(40) NOT NULL,
    dtc        DATE,
    cdpac      INT,
    nmresp     VARCHAR(150),
    foneresp   VARCHAR(50),
    cidade     VARCHAR(100),
    status     CHAR(1) NOT NULL DEFAULT '0',
    evcad      VARCHAR(100),
    upev       VARCHAR(100),
    cpf        VARCHAR(30),
    rg         VARCHAR(30),
    obs        TEXT,
    rua        VARCHAR(150),
    nrcasa     VARCHAR(30),
    email      VARCHAR(150),
    bairro     VARCHAR(100),
    cep        VARCHAR(20),
    uf         VARCHAR(20),
    fonepac    VARCHAR(50),
    idconv     INT,
    dsaler     VARCHAR(500),
    dsmed      VARCHAR(500),
    dscir      VARCHAR(500),
    taler      CHAR(1),
    tmed       CHAR(1),
    tcir       CHAR(1),
    diagno     VARCHAR(1000),
    medresp    VARCHAR(150),
    PRIMARY KEY (idlic, idcontrato),
    KEY (idlic, status, dtc)
);

-- Procedures sold; the contract's value is the sum of qtde * valor. idlan is the clock with the day first.
CREATE TABLE contrato_procedimentos (
    idlic       VARCHAR(20) NOT NULL,
    idcontrato  VARCHAR(40) NOT NULL,
    idlan       VARCHAR(40) NOT NULL,
    idproc      INT,
    qtde        DECIMAL(15, 4),
    valor       DECIMAL(15, 4),
    complemento VARCHAR(1000),
    evcad       VARCHAR(100),
    PRIMARY KEY (idlic, idcontrato, idlan)
);

-- Visits. idlan is the procedure, "_" and the first moment planned: it repeats between contracts, and a visit
-- that is moved keeps it. idprof and status are left to their defaults when a schedule is generated: no
-- professional yet, visit pending; status 1 is a visit done. The screen that moves a visit does not look at the day
-- that is typed: the server does.
CREATE TABLE contrato_agenda (
    idlic      VARCHAR(20) NOT NULL,
    idcontrato VARCHAR(40) NOT NULL,
    idlan      VARCHAR(40) NOT NULL,
    idproc     INT,
    data       DATE,
    hora       VARCHAR(20),
    idpac      INT,
    idprof     INT NOT NULL DEFAULT 0,
    status     CHAR(1) NOT NULL DEFAULT '0',
    PRIMARY KEY (idlic, idcontrato, idlan),
    KEY (idlic, data, hora),
    KEY (idlic, status, data),
    KEY (idlic, idlan)
);

-- Clinical record of a visit; status: N open, S closed.
CREATE TABLE contrato_atendimento (
    idlic      VARCHAR(20) NOT NULL,
    idcontrato VARCHAR(40) NOT NULL,
    idlan      VARCHAR(100) NOT NULL,
    idproc     INT,
    data       DATE,
    hora       VARCHAR(20),
    idprof     INT,
    idpac      INT,
    dsev       TEXT,
    evcad      VARCHAR(100),
    upev       VARCHAR(100),
    status     CHAR(1),
    PRIMARY KEY (idlic, idcontrato, idlan)
);

-- Prescriptions, one per procedure and day. idreceita is the day as yyyymmdd and stays when DtPresc is changed.
CREATE TABLE contrato_prescricao (
    idlic      VARCHAR(20) NOT NULL,
    idcontrato VARCHAR(40) NOT NULL,
    idproc     INT NOT NULL,
    idreceita  VARCHAR(20) NOT NULL,
    dspresc    TEXT,
    DtPresc    DATE,
    dsfreq     VARCHAR(500),
    evcad      VARCHAR(100),
    upev       VARCHAR(100),
    PRIMARY KEY (idlic, idcontrato, idproc, idreceita),
    KEY (idlic, idcontrato, DtPresc)
);

-- Supplies listed against a prescription.
CREATE TABLE contrato_insumos (
    idlic      VARCHAR(20) NOT NULL,
    idcontrato VARCHAR(40) NOT NULL,
    idproc     INT NOT NULL,
    dtpresc    DATE NOT NULL,
    cdpro      VARCHAR(40) NOT NULL,
    qtde       DECIMAL(15, 4),
    evcad      VARCHAR(100),
    PRIMARY KEY (idlic, idcontrato, idproc, dtpresc, cdpro)
);

-- Supplies delivered: a log, not a stock movement. idatend is the visit's idlan, or 0. tipo: 0 on the visit,
-- 1 in advance. dtv is the expiry as the user typed it, or '': text.
CREATE TABLE contrato_entregue (
    idlan      INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic      VARCHAR(20) NOT NULL,
    idcontrato VARCHAR(40) NOT NULL,
    idproc     INT,
    dtatend    DATE,
    cdpro      VARCHAR(40),
    qtde       DECIMAL(15, 4),
    evcad      VARCHAR(100),
    idatend    VARCHAR(100) NOT NULL DEFAULT '0',
    tipo       CHAR(1),
    lote       VARCHAR(100),
    dtv        VARCHAR(100),
    custo      DECIMAL(15, 4),
    KEY (idlic, idcontrato, idatend)
);

-- Orders of an earlier numbering. The contract list still names these three tables, and no screen fills them;
-- none has a tenant.
CREATE TABLE cliente (
    cdcli  INT NOT NULL PRIMARY KEY,
    nmcli  VARCHAR(150),
    cidade VARCHAR(100)
);

CREATE TABLE os_cab (
    osnr  INT NOT NULL PRIMARY KEY,
    dtos  DATE,
    ossit CHAR(1),
    nmsol VARCHAR(150),
    fone  VARCHAR(50),
    cdcli INT
);

CREATE TABLE os_srv (
    idreg INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    osnr  INT,
    KEY (osnr)
);
