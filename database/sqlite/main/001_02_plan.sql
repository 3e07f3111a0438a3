-- Periods, the chart of accounts and the budget classification.

-- Years (quarter and month 0), quarters (month 0) and months. Exactly these four columns in this order.
create table bd_period (
    per_id    integer primary key not null,
    per_metai integer not null check (typeof(per_metai) = 'integer'),
    per_ketv  integer not null check (typeof(per_ketv) = 'integer'),
    per_menuo integer check (typeof(per_menuo) in ('integer', 'null')),
    unique (per_metai, per_ketv, per_menuo)
);

-- The chart of accounts; kind D marks a detail account.
create table bd_sasplan (
    sas_id    integer primary key not null,
    sas_sasnr varchar(10) not null check (length(sas_sasnr) <= 10),
    sas_pavad varchar(100) check (length(sas_pavad) <= 100),
    sas_tip   varchar(1) check (length(sas_tip) <= 1),
    sas_tevid integer check (typeof(sas_tevid) in ('integer', 'null')) references bd_sasplan (sas_id),
    unique (sas_sasnr)
);

-- Classification books.
create table bd_asgisl (
    isl_id    integer primary key not null,
    isl_pavad varchar(100) check (length(isl_pavad) <= 100)
);

-- Nodes of a classification book; jve_duom = 1: the node can carry amounts.
create table bd_jve (
    jve_id    integer primary key not null,
    jve_islid integer not null check (typeof(jve_islid) = 'integer') references bd_asgisl (isl_id),
    jve_tevid integer check (typeof(jve_tevid) in ('integer', 'null')) references bd_jve (jve_id),
    jve_kodas varchar(20) check (length(jve_kodas) <= 20),
    jve_pavad varchar(150) check (length(jve_pavad) <= 150),
    jve_duom  smallint default 0 not null check (typeof(jve_duom) = 'integer')
);

-- State functions.
create table bd_fun (
    fun_id    integer primary key not null,
    fun_tevid integer check (typeof(fun_tevid) in ('integer', 'null')) references bd_fun (fun_id),
    fun_kodas varchar(20) check (length(fun_kodas) <= 20),
    fun_pavad varchar(150) check (length(fun_pavad) <= 150)
);
