-- Users, their rights, financing sources and the second balance-sheet form.

-- Financing sources.
create table bd_fin (
    fin_id          integer primary key,
    fin_pavad       varchar(100) check (length(fin_pavad) <= 100),
    fin_dir         varchar(100) check (length(fin_dir) <= 100),
    fin_org_pavad   varchar(150) check (length(fin_org_pavad) <= 150),
    fin_adr         varchar(100) check (length(fin_adr) <= 100),
    fin_i_kod       integer check (typeof(fin_i_kod) in ('integer', 'null')),
    fin_pvm_kod     varchar(14) check (length(fin_pvm_kod) <= 14),
    fin_draud_kod   varchar(10) check (length(fin_draud_kod) <= 10),
    fin_savivaldybe smallint check (typeof(fin_savivaldybe) in ('integer', 'null'))
                        references bd_savivaldybes (sav_kod),
    fin_rejnum      varchar(100) check (length(fin_rejnum) <= 100),
    fin_org_zenklas blob check (typeof(fin_org_zenklas) in ('blob', 'null')),
    fin_rodyti      smallint check (typeof(fin_rodyti) in ('integer', 'null'))
);

-- Work places; the mask of work place k has the bit k - 1.
create table bd_kdv (
    kdv_id  integer primary key not null,
    kdv_pav varchar(100) check (length(kdv_pav) <= 100)
);

-- Users.
create table bd_usr (
    usr_id         integer primary key not null,
    usr_name       varchar(10) check (length(usr_name) <= 10),
    usr_vardas     varchar(25) check (length(usr_vardas) <= 25),
    usr_pavarde    varchar(25) check (length(usr_pavarde) <= 25),
    usr_pasw       varchar(100) check (length(usr_pasw) <= 100),
    usr_perziurai  integer check (typeof(usr_perziurai) in ('integer', 'null')),
    usr_user_admin integer check (typeof(usr_user_admin) in ('integer', 'null'))
);

-- Rights: the work places at which a user works with a financing source.
create table bd_usrkdv (
    udv_usrid integer not null check (typeof(udv_usrid) = 'integer') references bd_usr (usr_id),
    udv_finid integer not null check (typeof(udv_finid) = 'integer') references bd_fin (fin_id),
    udv_kdv   integer not null check (typeof(udv_kdv) = 'integer'),
    primary key (udv_usrid, udv_finid)
);

-- Lines of the second balance-sheet form; the order of the codes is the order of the lines.
create table bd_baleil (
    bel_kod   varchar(5) primary key not null check (length(bel_kod) <= 5),
    bel_pavad varchar(100) check (length(bel_pavad) <= 100)
);

-- Accounts of a line of the second form, by their numbers.
create table bd_balsas (
    bss_id     integer primary key,
    bss_balkod varchar(5) not null check (length(bss_balkod) <= 5)
                   references bd_baleil (bel_kod) on delete cascade,
    bss_sasnr  varchar(2000) check (length(bss_sasnr) <= 2000),
    bss_tip    varchar(1) check (length(bss_tip) <= 1)
);
