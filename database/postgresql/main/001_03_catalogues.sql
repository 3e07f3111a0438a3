-- Reference catalogues.

-- Banks; bnk_bnkkodas is the bank's central bank, bnk_rink a percentage.
create table bd_bankai (
    bnk_kodas    bigint primary key,
    bnk_bnkkodas bigint references bd_bankai (bnk_kodas) on update cascade,
    bnk_pavad    varchar(40),
    bnk_rink     double precision
);

-- Professional groups; the code is the type times ten plus one digit.
create table du_drbklas (
    kla_kodas bigint primary key,
    kla_pavad varchar(100)
);

-- Civil-servant categories.
create table bd_tarn (
    trn_id    bigint primary key,
    trn_pavad varchar(50),
    trn_koef  double precision
);

-- Positions.
create table bd_prg (
    prg_id      bigint primary key,
    prg_pavad   varchar(50),
    prg_subord  smallint,
    prg_kla_kod bigint references du_drbklas (kla_kodas) on update cascade,
    prg_mokgyd  smallint,
    prg_trnid   bigint references bd_tarn (trn_id)
);

-- Activity types.
create table du_veikl (
    vkl_id    bigint primary key,
    vkl_kodas integer,
    vkl_pavad varchar(100)
);

-- Objects.
create table bd_objektai (
    obj_id    bigint primary key,
    obj_pavad varchar(100)
);

-- Income-type codes.
create table bd_pajamurusiukodai (
    paj_kod       varchar(3) primary key not null,
    paj_pavad     varchar(50),
    paj_nedrbsant smallint
);

-- Tax and payment codes.
create table pp_imok (
    imo_kod   varchar(3) primary key not null,
    imo_pavad varchar(100)
);

-- Departments. The references of pad_vklid, pad_sasid, pad_funid, pad_islid and pad_sasid2 may lead nowhere.
create table bd_pad (
    pad_id     bigint primary key,
    pad_pavad  varchar(50),
    pad_adr    varchar(50),
    pad_ist    integer,
    pad_kodas  varchar(5),
    pad_vklid  bigint,
    pad_sasid  bigint,
    pad_funid  bigint,
    pad_islid  bigint,
    pad_sasid2 bigint
);

-- Storage places of a department.
create table bd_laikymo_vieta (
    lv_id    bigint primary key,
    lv_padid bigint not null references bd_pad (pad_id),
    lv_pav   varchar(50) not null
);

-- Cash desks.
create table bd_kasos (
    kas_id    bigint primary key,
    kas_sasid bigint not null references bd_sasplan (sas_id),
    kas_pavad varchar(100) not null
);

-- Current accounts.
create table bd_einsas (
    ein_id       bigint primary key,
    ein_nr       varchar(20),
    ein_sasid    bigint references bd_sasplan (sas_id),
    ein_bank_kod integer,
    ein_bank_pav varchar(50)
);

-- Tenants.
create table bd_nuomasm (
    nuom_id       bigint primary key,
    nuom_sasid    bigint references bd_sasplan (sas_id),
    nuom_kod      varchar(7),
    nuom_pavad    varchar(150),
    nuom_adr      varchar(50),
    nuom_tel      varchar(13),
    nuom_i_kod    bigint,
    nuom_pvm_kod  varchar(14),
    nuom_ein_sas  varchar(34),
    nuom_bank_pav varchar(50),
    nuom_sasid2   bigint references bd_sasplan (sas_id)
);

-- Accountable persons.
create table bd_atsasm (
    ats_id      bigint primary key,
    ats_pav     varchar(50),
    ats_asm_kod varchar(11),
    ats_sasid   bigint references bd_sasplan (sas_id),
    ats_prgid   bigint references bd_prg (prg_id)
);

-- Materially responsible persons.
create table bd_matasm (
    mat_id      bigint primary key,
    mat_pavad   varchar(50),
    mat_asm_kod varchar(11),
    mat_padid   bigint references bd_pad (pad_id),
    mat_prgid   bigint references bd_prg (prg_id)
);

-- The institution itself: one row.
create table bd_org (
    org_pavad       varchar(150),
    org_adr         varchar(100),
    org_i_kod       bigint,
    org_pvm_kod     varchar(14),
    org_draud_kod   varchar(10),
    org_savivaldybe smallint references bd_savivaldybes (sav_kod),
    org_rejnum      varchar(100),
    org_zenklas     bytea,
    org_tipas       integer,
    org_kdv         bigint,
    org_dv          smallint,
    org_dv_iki      date,
    org_dv_old      smallint,
    org_id          integer default 1 not null check (org_id = 1),
    primary key (org_id)
);
