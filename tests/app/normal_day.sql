-- The program's own statements with values of a normal day, for the tenant T: above all those that a strict server
-- could refuse. schema_check runs them with the rights of the program's account and looks at the rows afterwards.

-- Registers; a server-numbered code is given where later statements need to know it. An account name longer than the screen's ten characters passes when its check is gone round.
insert into usuarios (idlic,nmusuario,ususenha,evcad,evup) values ('T','NOMECOMPRIDO','SEGREDO','ADMIN - 22/11/2026 14:05:09','ADMIN - 22/11/2026 14:05:09');
insert into perfilusuario (idlic,nmusuario,ususenha,campo,valor,evcad) values ('T','TESTE','SEGREDO','cadUsu              ','0','ADMIN - 22/11/2026 14:05:09');
insert into convenios (idconv,idlic,nmconv,evcad,evup,pdesc) values (70001,'T','PLANO','ADMIN - 22/11/2026 14:05:09','ADMIN - 22/11/2026 14:05:09','12.5');
insert into procedimentos (idproc,idlic,nmproc,ondeatd) values (70001,'T','VISITA','1');
insert into grupoestoque (idlic,dsgrupo,evcad,evup) values ('T','CURATIVOS','ADMIN 22/11/2026 14:05:09','ADMIN 22/11/2026 14:05:09');
insert into centrocusto (idlic,nmcen,evcad) values ('T','GERAL','ADMIN 22/11/2026 14:05:09');
insert into subcentrocusto (idlic,nmscen,evcad) values ('T','ALUGUEL','ADMIN 22/11/2026 14:05:09');
insert into fornecedores (cdfor,idlic,nmfor,nmfant,cpf,rg,fonefixo,fonecel,email,rua,nrcasa,bairro,cidade,uf,obs,cep,evcad,upev) values (70001,'T','FORNECEDOR','','','','','','','','','','','','','','ADMIN 22/11/2026 14:05:09','ADMIN 22/11/2026 14:05:09');
insert into produtos (idlic,cdpro,evcad,DSPRO,un,cdgrupo,vcusto,evup,dtucmp,obs,qmin,caplote) values ('T','0012','ADMIN 22/11/2026 14:05:09','GAZE','PCT',70001,'1.2525','ADMIN 22/11/2026 14:05:09','SR','','10','0');
insert into produtoscodigos (cdpror,evcad) values ('261122140509CAD','|22/11/2026 14:05:09');
select * from produtoscodigos where cdpror = '261122140509CAD';
insert into diahr (idlic,idpro,dia,hr,evcad,evup,ondeatd,idesp) values ('T',70001,'1 - DOMINGO','8:15/08:30/13:30','ADMIN - 22/11/2026 14:05:09','ADMIN- 22/11/2026 14:05:09','0',70001);
insert into diahr (idlic,idpro,dia,hr,evcad,evup,ondeatd,idesp) values ('T',70001,'1 - DOMINGO','8:15/08:30/13:30','ADMIN - 22/11/2026 14:05:09','ADMIN- 22/11/2026 14:05:09','0',70001);
insert into feriados (idlic,dia,Mes,nMes,obs,evcad,evup) values ('T','25','12','DEZEMBRO','NATAL','ADMIN - 22/11/2026 14:05:09','ADMIN - 22/11/2026 14:05:09');
select * from feriados where idlic = 'T' and dia like 25 and mes like 12;
-- A patient of whom little is known: no date of birth, no answers.
insert into pacientes (idpac,idlic,dtcad,nmPac,idconv) values (70001,'T','2026/11/22','JOSÉ DA CONCEIÇÃO','70001');

-- The agenda: two bookings of one slot by two clerks, patient 0, an update, two equal lines in one closing.
insert into agenda_clinica (idlic,idagenda,fone,idpro,idesp,idconv,idpac,nmpac,dia,hr,obs,idproc,valor,status,evcad,evup,mobesp,ondeatd) values ('T','261122140509RECEPCAO70001','(19) 99999-0000 (19) 3333-0000','70001','70001','70001','70001','JOSÉ DA CONCEIÇÃO','2026/11/22','08:30','','70001','0.00','0','RECEPCAO 22/11/2026 14:05:09','RECEPCAO 22/11/2026 14:05:09','0 - Não','0');
insert into agenda_clinica (idlic,idagenda,fone,idpro,idesp,idconv,idpac,nmpac,dia,hr,obs,idproc,valor,status,evcad,evup,mobesp,ondeatd) values ('T','261122140509ADMIN70001','9','70001','70001','70001','0','SEM CADASTRO','2026/11/22','08:30','','70001','1234567.89','0','ADMIN 22/11/2026 14:05:09','ADMIN 22/11/2026 14:05:09','1 - Sim','0');
insert into agenda_clinica (idlic,idagenda,fone,idpro,idesp,idconv,idpac,nmpac,dia,hr,obs,idproc,valor,status,evcad,evup,mobesp,ondeatd) values ('T','261122140509ADMIN0','9','0','70001','70001','70001','JOSÉ DA CONCEIÇÃO','2026/11/22','8:15','','70001','0.00','0','ADMIN 22/11/2026 14:05:09','ADMIN 22/11/2026 14:05:09','0 - Não','1');
update agenda_clinica set ondeatd = '0', mobesp = '1 - Sim', fone = '9',idconv = '70001',idpac = '70001',nmpac = 'JOSÉ',dia = '2026/11/22',hr = '08:30',obs = '',idproc = '70001', valor = '50.00', evup = 'ADMIN 22/11/2026 14:05:09' where idlic = 'T' and idagenda = '261122140509ADMIN70001';
insert into atendimentos (idlan,idlic,ondeatd,idprof,idproc,dt,hr,qtde,valor,cf,idatendimento,idconv,evcad,idpac) values ('T02211260830700017000170001','T','0','70001','70001','2026/11/22','0830','1','100.00','N','07000122112026140509','70001','RECEPCAO 22/11/2026 14:05:09','70001');
insert into atendimentos (idlan,idlic,ondeatd,idprof,idproc,dt,hr,qtde,valor,cf,idatendimento,idconv,evcad,idpac) values ('T02211260830700017000170001','T','0','70001','70001','2026/11/22','0830','1.5','33.3333','N','07000122112026140509','70001','RECEPCAO 22/11/2026 14:05:09','70001');
insert into atendimento_finan (idlic,idatend,mp,obs,valor,cf,evcad) values ('T','07000122112026140509','DÉBITO CARTAO','','150.00','N','RECEPCAO 22/11/2026 14:05:09');

-- A contract of that patient, its procedures, two schedules, and a moved visit.
INSERT INTO contrato (idlic,idcontrato,dtc,cdpac,nmresp,foneresp,cidade,status,evcad,upev,cpf,rg,obs,rua,nrcasa,email,bairro,cep,uf,fonepac,idconv,dsaler,dsmed,dscir,taler,tmed,tcir,diagno,medresp) VALUES ('T','26112214050970001','2026/11/22','70001','','','','0','ADMIN 22/11/2026 14:05:09','ADMIN 22/11/2026 14:05:09','','','','','','','','','','','70001','','','','','','','','');
update contrato set dtc = '2026/11/22',cdpac = '70001',status = '1',nmresp = 'ANA',foneresp = '9', idconv = '70001',cidade='',upev='ADMIN 22/11/2026 14:05:09',cpf='',rg='',obs = '',rua='',nrcasa='',email='',bairro='',cep='',uf='',fonepac='9',dsaler='',dsmed='',dscir='',taler='0',tmed='0',tcir='0',diagno='',medresp='' where idlic = 'T' and idcontrato = '26112214050970001';
insert into contrato_procedimentos (idlic,idcontrato,idlan,idproc,qtde,valor,complemento,evcad) values ('T','26112214050970001','221126140509','70001','30','110.00','','ADMIN 22/11/2026 14:05:09');
insert into contrato_procedimentos (idlic,idcontrato,idlan,idproc,qtde,valor,complemento,evcad) values ('T','26112214050970001','221126140510','12','30','110.00','','ADMIN 22/11/2026 14:05:09');
update contrato_procedimentos  set idproc = '12',qtde = '1.5',valor = '0.1234',complemento= '' where idlic = 'T' and idcontrato = '26112214050970001' and idlan = '221126140510';
INSERT INTO contrato_agenda (idlic,idcontrato,idlan,idproc,data,hora,idpac) VALUES ('T','26112214050970001','70001_2611220800','70001','2026/11/22','08:00','70001');
INSERT INTO contrato_agenda (idlic,idcontrato,idlan,idproc,data,hora,idpac) VALUES ('T','26112214050970002','70001_2611220800','70001','2026/11/22','08:00','70001');
update contrato_agenda set data='2026/11/23',hora='9:5' where idlic = 'T' and idcontrato = '26112214050970002' and idlan = '70001_2611220800';
DELETE FROM contrato_agenda WHERE idlic = 'T' AND idcontrato = '26112214050970002' AND idproc LIKE 70001;
insert into contrato_prescricao (idlic,idcontrato,idproc,idreceita,dspresc,DtPresc,dsfreq,evcad,upev) values ('T','26112214050970001',70001,'20261122','CURATIVO','2026/11/22','8/8 H','ADMIN 22/11/2026 14:05:09','ADMIN 22/11/2026 14:05:09');
insert into contrato_insumos (idlic,idcontrato,idproc,dtpresc,cdpro,qtde,evcad) values ('T','26112214050970001','70001','2026/11/22','0012','2.5','ADMIN 22/11/2026 14:05:09');
-- The record of a visit, deliveries on the visit and in advance.
insert into contrato_atendimento (idlic,idcontrato,idlan,idproc,data,hora,idprof,idpac,dsev,evcad,upev,status) values ('T','26112214050970001','70001_2611220800','70001','2026/11/22','08:00','70001','70001','','ADMIN 22/11/2026 14:05:09','ADMIN 22/11/2026 14:05:09','N');
insert into contrato_entregue (idlic,idcontrato,idproc,dtatend,cdpro,qtde,evcad,idatend,tipo,lote,dtv,custo) values ('T','26112214050970001','70001','2026/11/22','0012','2','ADMIN 22/11/2026 14:05:09','70001_2611220800','0','L9','31/12/2026','1.2525');
insert into contrato_entregue (idlic,idcontrato,idproc,dtatend,cdpro,qtde,evcad,idatend,tipo,lote,dtv,custo) values ('T','26112214050970001','70001','2026/11/22','0012','2','ADMIN 22/11/2026 14:05:09','0','1','','','0');

-- Purchases with and without expiry, an instalment, its settlement.
insert into insumos_cmp (idlic,idlan,cdfor,serie,nfiscal,modelo,dte,dtc,cdpro,vfinal,vfrete,qtde,status,evcad,lote) values ('T','261122140509','70001','1','123456789012','55','2026/11/20','2026/11/22','0012','1.2525','0','100','N',' 22/11/2026 14:05:09','');
insert into insumos_cmp (idlic,idlan,cdfor,serie,nfiscal,modelo,dte,dtc,cdpro,vfinal,vfrete,qtde,status,evcad,lote,dtv) values ('T','261122140510','70001','001','123456789012','55','2026/11/20','2026/11/22','0012','1.2525','0','100','N',' 22/11/2026 14:05:10','L9','2027/12/31');
update insumos_cmp set vfrete = '0.0125' where  idlic = 'T' and  idlan = '261122140510';
insert into cpagar (idlic,idlan,nrdoc,refdoc,cdfor,dte,obs,cdcen,cdscen,dtv,vrorig,vrpg,vrab,parcela,evcad) values ('T','001/002/NF 77-A/70001','NF 77-A','REF','70001','2026/11/22','','70001','70001','2026/12/22','150.00','0','150.00','001/002','FINANCAS 22/11/2026 14:05:09');
insert into cpagar (idlic,idlan,nrdoc,refdoc,cdfor,dte,obs,cdcen,cdscen,dtv,vrorig,vrpg,vrab,parcela,evcad) values ('T','002/002/NF 77-A/70001','NF 77-A','REF','70001','2026/11/22','','70001','70001','2027/01/22','150.00','0','150.00','002/002','FINANCAS 22/11/2026 14:05:09');
update cpagar set vrj = '1.50', vrd = '0.00', vrpg = '151.50', pago = 'X', nrrec = '261122140509' where idlic = 'T' and idlan = '002/002/NF 77-A/70001';
insert into cpagar_recibos (idlic,nrrec,dtbx,cdmp,obs,valor,evcad) values ('T','261122140509','2026/11/22','PIX','','151.50','FINANCAS 22/11/2026 14:05:09');
update cpagar set pago = 'S',vrab = 0, dtp = '2026/11/22' where idlic = 'T' and nrrec = '261122140509' and pago = 'X';

-- Tables that are only read, or named by a button.
select c.nrdoc,c.dte,c.dtv,c.vrorig,c.juros,c.descontos,c.vrpg,c.vrab,f.nmcli from creceber c left join clientes f on c.cdcli like f.cdcli where c.pago = 'N' and c.vrab > 0 and  c.dtv >= '2026/11/01' and c.dtv <= '2026/11/30'  and c.cdcli like 1 order by c.dtv;
select c.nrrec,c.nrdoc,c.dtbx,c.dtv,c.vrab,c.vrpg,c.juros,c.descontos,f.nmcli from creceber_recibos c left join clientes f on c.cdcli like f.cdcli where c.status = 'S' and  c.dtbx >= '2026/11/01' and c.dtbx <= '2026/11/30'  order by c.dtbx,c.nrdoc;
select distinct(nrrec) as NrRec,cdcli from creceber_recibos where  idlic = 'T' and status = 'X';
select nmcli from clientes where  idlic = 'T' and cdcli like 1;
select o.osnr,o.dtos,o.ossit,o.nmsol,o.fone,c.nmcli,c.cidade from os_cab o left join cliente c on o.cdcli like c.cdcli where c.cidade like '%A%';
delete from os_srv where osnr like 1;
delete from os_cab where osnr like 1;
