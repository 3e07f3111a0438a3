-- Counterparties, balances, estimates, templates of entries and the entries themselves.

-- Debtors and creditors. The references of dka_sasid, dka_sasid_2 and dka_bank_kod may lead nowhere.
create table bd_dbkrasm (
    dka_id             integer primary key not null,
    dka_kod            varchar(20) not null check (length(dka_kod) <= 20),
    dka_pavad          varchar(150) not null check (length(dka_pavad) <= 150),
    dka_adr            varchar(50) check (length(dka_adr) <= 50),
    dka_tel            varchar(13) check (length(dka_tel) <= 13),
    dka_i_kod          integer check (typeof(dka_i_kod) in ('integer', 'null')),
    dka_pvm_kod        varchar(14) check (length(dka_pvm_kod) <= 14),
    dka_ein_sas        varchar(20) check (length(dka_ein_sas) <= 20),
    dka_bank_kod       integer check (typeof(dka_bank_kod) in ('integer', 'null')),
    dka_bank_pav       varchar(50) check (length(dka_bank_pav) <= 50),
    dka_sasid          integer not null check (typeof(dka_sasid) = 'integer'),
    dka_sasid_2        integer not null check (typeof(dka_sasid_2) = 'integer'),
    dka_klient_infsist varchar(50) check (length(dka_klient_infsist) <= 50)
);

-- Contracts of counterparties; dks_dkaid is 0 for a counterparty that is not saved yet.
create table bd_dbkrsut (
    dks_id    integer primary key,
    dks_dkaid integer check (typeof(dks_dkaid) in ('integer', 'null')),
    dks_nr    varchar(20) check (length(dks_nr) <= 20),
    dks_nuo   date check (dks_nuo is date(dks_nuo, '+0 days')),
    dks_iki   date check (dks_iki is date(dks_iki, '+0 days')),
    dks_tipas varchar(1) check (length(dks_tipas) <= 1),
    dks_suma  numeric(15,4) check (typeof(dks_suma) in ('integer', 'real', 'null') and abs(dks_suma) < 1e11)
);

-- Balances of accounts at the start of a period. An account may have several in one period.
create table bd_saslik (
    ssl_id     integer primary key not null,
    ssl_sasid  integer not null check (typeof(ssl_sasid) = 'integer') references bd_sasplan (sas_id),
    ssl_perid  integer not null check (typeof(ssl_perid) = 'integer'),
    ssl_sum_db numeric(15,4) default 0 not null
                   check (typeof(ssl_sum_db) in ('integer', 'real') and abs(ssl_sum_db) < 1e11),
    ssl_sum_kr numeric(15,4) default 0 not null
                   check (typeof(ssl_sum_kr) in ('integer', 'real') and abs(ssl_sum_kr) < 1e11)
);

-- Balances of expenses by classification node: appropriation, cash and factual.
create table bd_isllik (
    sml_id      integer primary key not null,
    sml_perid   integer not null check (typeof(sml_perid) = 'integer'),
    sml_jveid   integer not null check (typeof(sml_jveid) = 'integer') references bd_jve (jve_id),
    sml_asig_db numeric(15,4) default 0 not null
                    check (typeof(sml_asig_db) in ('integer', 'real') and abs(sml_asig_db) < 1e11),
    sml_asig_kr numeric(15,4) default 0 not null
                    check (typeof(sml_asig_kr) in ('integer', 'real') and abs(sml_asig_kr) < 1e11),
    sml_kas_db  numeric(15,4) default 0 not null
                    check (typeof(sml_kas_db) in ('integer', 'real') and abs(sml_kas_db) < 1e11),
    sml_kas_kr  numeric(15,4) default 0 not null
                    check (typeof(sml_kas_kr) in ('integer', 'real') and abs(sml_kas_kr) < 1e11),
    sml_fak_db  numeric(15,4) default 0 not null
                    check (typeof(sml_fak_db) in ('integer', 'real') and abs(sml_fak_db) < 1e11),
    sml_fak_kr  numeric(15,4) default 0 not null
                    check (typeof(sml_fak_kr) in ('integer', 'real') and abs(sml_fak_kr) < 1e11),
    unique (sml_jveid, sml_perid)
);

-- Balances of debtors and creditors: of the register (dkl_dkaid) or typed in free.
create table bd_dbkrlik (
    dkl_id     integer primary key not null,
    dkl_perid  integer not null check (typeof(dkl_perid) = 'integer'),
    dkl_dkaid  integer check (typeof(dkl_dkaid) in ('integer', 'null')) references bd_dbkrasm (dka_id),
    dkl_sasid  integer check (typeof(dkl_sasid) in ('integer', 'null')) references bd_sasplan (sas_id),
    dkl_i_kod  integer check (typeof(dkl_i_kod) in ('integer', 'null')),
    dkl_pavad  varchar(150) check (length(dkl_pavad) <= 150),
    dkl_sum_db numeric(15,4) not null
                   check (typeof(dkl_sum_db) in ('integer', 'real') and abs(dkl_sum_db) < 1e11),
    dkl_sum_kr numeric(15,4) not null
                   check (typeof(dkl_sum_kr) in ('integer', 'real') and abs(dkl_sum_kr) < 1e11),
    dkl_padid  integer check (typeof(dkl_padid) in ('integer', 'null')) references bd_pad (pad_id)
);

-- Lines of the balance-sheet form; the order of the codes is the order of the lines.
create table bd_baleil (
    bel_kod   varchar(5) primary key not null check (length(bel_kod) <= 5),
    bel_pavad varchar(100) check (length(bel_pavad) <= 100)
);

-- Accounts of a line of the balance-sheet form.
create table bd_balsas (
    bss_id     integer primary key,
    bss_balkod varchar(5) not null check (length(bss_balkod) <= 5)
                   references bd_baleil (bel_kod) on delete cascade,
    bss_sasid  integer not null check (typeof(bss_sasid) = 'integer') references bd_sasplan (sas_id),
    bss_tip    varchar(1) check (length(bss_tip) <= 1)
);

-- Typical operations.
create table bd_opr (
    opr_id    integer primary key not null,
    opr_pavad varchar(50) check (length(opr_pavad) <= 50)
);

-- Accounts of a typical operation; the key refuses the same account twice in one list.
create table bd_oprsaskor (
    osk_oprid integer not null check (typeof(osk_oprid) = 'integer')
                  references bd_opr (opr_id) on delete cascade,
    osk_sasid integer not null check (typeof(osk_sasid) = 'integer') references bd_sasplan (sas_id),
    osk_db_kr varchar(1) not null check (length(osk_db_kr) <= 1),
    osk_1_2   varchar(1) not null check (length(osk_1_2) <= 1),
    primary key (osk_oprid, osk_sasid, osk_db_kr, osk_1_2)
);

-- Estimates of a node: the yearly row and its quarters (period of the year + 1 to + 4).
-- sam_sam_kor is the total of the corrections and is kept by the database.
create table bd_samatos (
    sam_id      integer primary key not null,
    sam_jveid   integer not null check (typeof(sam_jveid) = 'integer') references bd_jve (jve_id),
    sam_perid   integer not null check (typeof(sam_perid) = 'integer'),
    sam_samata  numeric(15,4) default 0 not null
                    check (typeof(sam_samata) in ('integer', 'real') and abs(sam_samata) < 1e11),
    sam_sam_kor numeric(15,4) default 0 not null
                    check (typeof(sam_sam_kor) in ('integer', 'real') and abs(sam_sam_kor) < 1e11),
    unique (sam_jveid, sam_perid)
);

-- Corrections of an estimate by documents; they belong to its yearly row.
create table bd_samkor (
    sak_id       integer primary key not null,
    sak_samid    integer not null check (typeof(sak_samid) = 'integer')
                     references bd_samatos (sam_id) on delete cascade,
    sak_data     date check (sak_data is date(sak_data, '+0 days')),
    sak_doknr    varchar(10) check (length(sak_doknr) <= 10),
    sak_i_ketv   numeric(15,4) default 0 not null
                     check (typeof(sak_i_ketv) in ('integer', 'real') and abs(sak_i_ketv) < 1e11),
    sak_ii_ketv  numeric(15,4) default 0 not null
                     check (typeof(sak_ii_ketv) in ('integer', 'real') and abs(sak_ii_ketv) < 1e11),
    sak_iii_ketv numeric(15,4) default 0 not null
                     check (typeof(sak_iii_ketv) in ('integer', 'real') and abs(sak_iii_ketv) < 1e11),
    sak_iv_ketv  numeric(15,4) default 0 not null
                     check (typeof(sak_iv_ketv) in ('integer', 'real') and abs(sak_iv_ketv) < 1e11)
);

-- Disposal methods of fixed assets.
create table it_pardtip (
    pat_id  integer primary key not null,
    pat_pav varchar(100) check (length(pat_pav) <= 100)
);

-- Acquisition methods of fixed assets with their two settings.
create table it_pirktip (
    pit_id      integer primary key not null,
    pit_pav     varchar(100) check (length(pit_pav) <= 100),
    pit_tipas   integer check (typeof(pit_tipas) in ('integer', 'null')),
    pit_pozymis integer check (typeof(pit_pozymis) in ('integer', 'null'))
);

-- Fixed assets: how each came and went, where it is kept and by whom.
create table it_turtas (
    tur_id       integer primary key not null,
    tur_inv_nr   varchar(20) check (length(tur_inv_nr) <= 20),
    tur_pavad    varchar(100) check (length(tur_pavad) <= 100),
    tur_pitid    integer check (typeof(tur_pitid) in ('integer', 'null')) references it_pirktip (pit_id),
    tur_patid    integer check (typeof(tur_patid) in ('integer', 'null')) references it_pardtip (pat_id),
    tur_lvid     integer check (typeof(tur_lvid) in ('integer', 'null')) references bd_laikymo_vieta (lv_id),
    tur_matid    integer check (typeof(tur_matid) in ('integer', 'null')) references bd_matasm (mat_id),
    tur_objid    integer check (typeof(tur_objid) in ('integer', 'null')) references bd_objektai (obj_id),
    tur_sasid    integer check (typeof(tur_sasid) in ('integer', 'null')) references bd_sasplan (sas_id),
    tur_isigyta  date check (tur_isigyta is date(tur_isigyta, '+0 days')),
    tur_nurasyta date check (tur_nurasyta is date(tur_nurasyta, '+0 days')),
    tur_suma     numeric(15,4) default 0 not null
                     check (typeof(tur_suma) in ('integer', 'real') and abs(tur_suma) < 1e11)
);

-- The journal of entries, one line per account. A line may carry a counterparty, a department and, for
-- a node of the classification, expenses of the three kinds.
create table bd_irasai (
    irs_id      integer primary key not null,
    irs_perid   integer not null check (typeof(irs_perid) = 'integer'),
    irs_data    date check (irs_data is date(irs_data, '+0 days')),
    irs_dok     varchar(20) check (length(irs_dok) <= 20),
    irs_sasid   integer check (typeof(irs_sasid) in ('integer', 'null')) references bd_sasplan (sas_id),
    irs_sum_db  numeric(15,4) default 0 not null
                    check (typeof(irs_sum_db) in ('integer', 'real') and abs(irs_sum_db) < 1e11),
    irs_sum_kr  numeric(15,4) default 0 not null
                    check (typeof(irs_sum_kr) in ('integer', 'real') and abs(irs_sum_kr) < 1e11),
    irs_dkaid   integer check (typeof(irs_dkaid) in ('integer', 'null')) references bd_dbkrasm (dka_id),
    irs_padid   integer check (typeof(irs_padid) in ('integer', 'null')) references bd_pad (pad_id),
    irs_jveid   integer check (typeof(irs_jveid) in ('integer', 'null')) references bd_jve (jve_id),
    irs_asig_db numeric(15,4) default 0 not null
                    check (typeof(irs_asig_db) in ('integer', 'real') and abs(irs_asig_db) < 1e11),
    irs_asig_kr numeric(15,4) default 0 not null
                    check (typeof(irs_asig_kr) in ('integer', 'real') and abs(irs_asig_kr) < 1e11),
    irs_kas_db  numeric(15,4) default 0 not null
                    check (typeof(irs_kas_db) in ('integer', 'real') and abs(irs_kas_db) < 1e11),
    irs_kas_kr  numeric(15,4) default 0 not null
                    check (typeof(irs_kas_kr) in ('integer', 'real') and abs(irs_kas_kr) < 1e11),
    irs_fak_db  numeric(15,4) default 0 not null
                    check (typeof(irs_fak_db) in ('integer', 'real') and abs(irs_fak_db) < 1e11),
    irs_fak_kr  numeric(15,4) default 0 not null
                    check (typeof(irs_fak_kr) in ('integer', 'real') and abs(irs_fak_kr) < 1e11),
    irs_matid   integer check (typeof(irs_matid) in ('integer', 'null')) references bd_matasm (mat_id),
    irs_atsid   integer check (typeof(irs_atsid) in ('integer', 'null')) references bd_atsasm (ats_id),
    irs_kasid   integer check (typeof(irs_kasid) in ('integer', 'null')) references bd_kasos (kas_id),
    irs_einid   integer check (typeof(irs_einid) in ('integer', 'null')) references bd_einsas (ein_id)
);
