-- Schema, second of four files: the clinic's agenda.

-- Appointments. idagenda is the clock, the user's name and the professional's code. Nothing keeps two bookings
-- of one slot apart: both are shown. idpro is 0 on a home booking. fone joins two telephones; mobesp holds the
-- whole text of its box. status: 0 booked, 1 patient notified, 2 attended and closed.
CREATE TABLE agenda_clinica (
    idlic    VARCHAR(20) NOT NULL,
    idagenda VARCHAR(100) NOT NULL,
    fone     VARCHAR(150),
    idpro    INT NOT NULL DEFAULT 0,
    idesp    INT,
    idconv   INT,
    idpac    INT,
    nmpac    VARCHAR(150),
    dia      DATE NOT NULL,
    hr       VARCHAR(20) NOT NULL,
    obs      VARCHAR(1000),
    idproc   INT,
    valor    DECIMAL(17, 2),
    status   CHAR(1) NOT NULL DEFAULT '0',
    evcad    VARCHAR(100),
    evup     VARCHAR(100),
    mobesp   VARCHAR(20),
    ondeatd  CHAR(1),
    PRIMARY KEY (idlic, idagenda),
    KEY (idlic, idpro, dia),
    KEY (idlic, dia, hr, idpac),
    KEY (idlic, dia, nmpac)
);

-- Procedures of closed attendances. idlan repeats when one closing holds a procedure twice, so it is no key;
-- idatendimento binds the rows of a closing to their payments. hr is the slot without its colon.
-- valor takes every price that an appointment holds.
CREATE TABLE atendimentos (
    idreg         INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlan         VARCHAR(120),
    idlic         VARCHAR(20) NOT NULL,
    ondeatd       CHAR(1),
    idprof        INT,
    idproc        INT,
    dt            DATE,
    hr            VARCHAR(20),
    qtde          DECIMAL(15, 4),
    valor         DECIMAL(19, 4),
    cf            CHAR(1),
    idatendimento VARCHAR(60),
    idconv        INT,
    evcad         VARCHAR(100),
    idpac         INT,
    KEY (idlic, idatendimento)
);

-- Payments of closed attendances.
CREATE TABLE atendimento_finan (
    idreg    INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    idlic    VARCHAR(20) NOT NULL,
    idatend  VARCHAR(60),
    mp       VARCHAR(30),
    obs      VARCHAR(1000),
    valor    DECIMAL(19, 4),
    cf       CHAR(1),
    evcad    VARCHAR(100),
    KEY (idlic, idatend)
);
