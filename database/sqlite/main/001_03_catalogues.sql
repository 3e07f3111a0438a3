-- Reference catalogues.

-- Banks; bnk_bnkkodas is the bank's central bank, bnk_rink a percentage.
create table bd_bankai (
    bnk_kodas    integer primary key not null,
    bnk_bnkkodas integer check (typeof(bnk_bnkkodas) in ('integer', 'null'))
                     references bd_bankai (bnk_kodas) on update cascade,
    bnk_pavad    varchar(40) check (length(bnk_pavad) <= 40),
    bnk_rink     double precision check (typeof(bnk_rink) in ('real', 'null'))
);

-- Professional groups; the code is the type times ten plus one digit.
create table du_drbklas (
    kla_kodas integer primary key not null,
    kla_pavad varchar(100) check (length(kla_pavad) <= 100)
);

-- Civil-servant categories.
create table bd_tarn (
    trn_id    integer primary key not null,
    trn_pavad varchar(50) check (length(trn_pavad) <= 50),
    trn_koef  double precision check (typeof(trn_koef) in ('real', 'null'))
);

-- Positions.
create table bd_prg (
    prg_id      integer primary key not null,
    prg_pavad   varchar(50) check (length(prg_pavad) <= 50),
    prg_subord  smallint check (typeof(prg_subord) in ('integer', 'null')),
    prg_kla_kod integer check (typeof(prg_kla_kod) in ('integer', 'null'))
                    references du_drbklas (kla_kodas) on update cascade,
    prg_mokgyd  smallint check (typeof(prg_mokgyd) in ('integer', 'null')),
    prg_trnid   integer check (typeof(prg_trnid) in ('integer', 'null')) references bd_tarn (trn_id)
);

-- Activity types.
create table du_veikl (
    vkl_id    integer primary key not null,
    vkl_kodas integer check (typeof(vkl_kodas) in ('integer', 'null')),
    vkl_pavad varchar(100) check (length(vkl_pavad) <= 100)
);

-- Objects.
create table bd_objektai (
    obj_id    integer primary key not null,
    obj_pavad varchar(100) check (length(obj_pavad) <= 100)
);

-- Income-type codes.
create table bd_pajamurusiukodai (
    paj_kod       varchar(3) primary key not null check (length(paj_kod) <= 3),
    paj_pavad     varchar(50) check (length(paj_pavad) <= 50),
    paj_nedrbsant smallint check (typeof(paj_nedrbsant) in ('integer', 'null'))
);

-- Tax and payment codes.
create table pp_imok (
    imo_kod   varchar(3) primary key not null check (length(imo_kod) <= 3),
    imo_pavad varchar(100) check (length(imo_pavad) <= 100)
);

-- Departments. The references of pad_vklid, pad_sasid, pad_funid, pad_islid and pad_sasid2 may lead nowhere.
create table bd_pad (
    pad_id     integer primary key not null,
    pad_pavad  varchar(50) check (length(pad_pavad) <= 50),
    pad_adr    varchar(50) check (length(pad_adr) <= 50),
    pad_ist    integer check (typeof(pad_ist) in ('integer', 'null')),
    pad_kodas  varchar(5) check (length(pad_kodas) <= 5),
    pad_vklid  integer check (typeof(pad_vklid) in ('integer', 'null')),
    pad_sasid  integer check (typeof(pad_sasid) in ('integer', 'null')),
    pad_funid  integer check (typeof(pad_funid) in ('integer', 'null')),
    pad_islid  integer check (typeof(pad_islid) in ('integer', 'null')),
    pad_sasid2 integer check (typeof(pad_sasid2) in ('integer', 'null'))
);

-- Storage places of a department.
create table bd_laikymo_vieta (
    lv_id    integer primary key not null,
    lv_padid integer not null check (typeof(lv_padid) = 'integer') references bd_pad (pad_id),
    lv_pav   varchar(50) not null check (length(lv_pav) <= 50)
);

-- Cash desks.
create table bd_kasos (
    kas_id    integer primary key not null,
    kas_sasid integer not null check (typeof(kas_sasid) = 'integer') references bd_sasplan (sas_id),
    kas_pavad varchar(100) not null check (length(kas_pavad) <= 100)
);

-- Current accounts.
create table bd_einsas (
    ein_id       integer primary key not null,
    ein_nr       varchar(20) check (length(ein_nr) <= 20),
    ein_sasid    integer check (typeof(ein_sasid) in ('integer', 'null')) references bd_sasplan (sas_id),
    ein_bank_kod integer check (typeof(ein_bank_kod) in ('integer', 'null')),
    ein_bank_pav varchar(50) check (length(ein_bank_pav) <= 50)
);

-- Tenants.
create table bd_nuomasm (
    nuom_id       integer primary key not null,
    nuom_sasid    integer check (typeof(nuom_sasid) in ('integer', 'null')) references bd_sasplan (sas_id),
    nuom_kod      varchar(7) check (length(nuom_kod) <= 7),
    nuom_pavad    varchar(150) check (length(nuom_pavad) <= 150),
    nuom_adr      varchar(50) check (length(nuom_adr) <= 50),
    nuom_tel      varchar(13) check (length(nuom_tel) <= 13),
    nuom_i_kod    integer check (typeof(nuom_i_kod) in ('integer', 'null')),
    nuom_pvm_kod  varchar(14) check (length(nuom_pvm_kod) <= 14),
    nuom_ein_sas  varchar(34) check (length(nuom_ein_sas) <= 34),
    nuom_bank_pav varchar(50) check (length(nuom_bank_pav) <= 50),
    nuom_sasid2   integer check (typeof(nuom_sasid2) in ('integer', 'null')) references bd_sasplan (sas_id)
);

-- Accountable persons.
create table bd_atsasm (
    ats_id      integer primary key not null,
    ats_pav     varchar(50) check (length(ats_pav) <= 50),
    ats_asm_kod varchar(11) check (length(ats_asm_kod) <= 11),
    ats_sasid   integer check (typeof(ats_sasid) in ('integer', 'null')) references bd_sasplan (sas_id),
    ats_prgid   integer check (typeof(ats_prgid) in ('integer', 'null')) references bd_prg (prg_id)
);

-- Materially responsible persons.
create table bd_matasm (
    mat_id      integer primary key not null,
    mat_pavad   varchar(50) check (length(mat_pavad) <= 50),
    mat_asm_kod varchar(11) check (length(mat_asm_kod) <= 11),
    mat_padid   integer check (typeof(mat_padid) in ('integer', 'null')) references bd_pad (pad_id),
    mat_prgid   integer check (typeof(mat_prgid) in ('integer', 'null')) references bd_prg (prg_id)
);

-- The institution itself: one row.
create table bd_org (
    org_pavad       varchar(150) check (length(org_pavad) <= 150),
    org_adr         varchar(100) check (length(org_adr) <= 100),
    org_i_kod       integer check (typeof(org_i_kod) in ('integer', 'null')),
    org_pvm_kod     varchar(14) check (length(org_pvm_kod) <= 14),
    org_draud_kod   varchar(10) check (length(org_draud_kod) <= 10),
    org_savivaldybe smallint check (typeof(org_savivaldybe) in ('integer', 'null'))
                        references bd_savivaldybes (sav_kod),
    org_rejnum      varchar(100) check (length(org_rejnum) <= 100),
    org_zenklas     blob check (typeof(org_zenklas) in ('blob', 'null')),
    org_tipas       integer check (typeof(org_tipas) in ('integer', 'null')),
    org_kdv         integer check (typeof(org_kdv) in ('integer', 'null')),
    org_dv          smallint check (typeof(org_dv) in ('integer', 'null')),
    org_dv_iki      date check (org_dv_iki is date(org_dv_iki, '+0 days')),
    org_dv_old      smallint check (typeof(org_dv_old) in ('integer', 'null')),
    org_id          integer default 1 not null check (org_id = 1) check (typeof(org_id) = 'integer'),
    primary key (org_id)
);
