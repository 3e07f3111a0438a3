-- Periods, the chart of accounts and the budget classification.

-- Years (quarter and month 0), quarters (month 0) and months. Exactly these four columns in this order.
create table bd_period (
    per_id    integer primary key not null,
    per_metai integer not null,
    per_ketv  integer not null,
    per_menuo integer,
    unique (per_metai, per_ketv, per_menuo)
);

-- The chart of accounts; kind D marks a detail account.
create table bd_sasplan (
    sas_id    bigint primary key,
    sas_sasnr varchar(10) not null,
    sas_pavad varchar(100),
    sas_tip   varchar(1),
    sas_tevid bigint references bd_sasplan (sas_id),
    unique (sas_sasnr)
);

-- Classification books.
create table bd_asgisl (
    isl_id    bigint primary key,
    isl_pavad varchar(100)
);

-- Nodes of a classification book; jve_duom = 1: the node can carry amounts.
create table bd_jve (
    jve_id    bigint primary key,
    jve_islid bigint not null references bd_asgisl (isl_id),
    jve_tevid bigint references bd_jve (jve_id),
    jve_kodas varchar(20),
    jve_pavad varchar(150),
    jve_duom  smallint default 0 not null
);

-- State functions.
create table bd_fun (
    fun_id    bigint primary key,
    fun_tevid bigint references bd_fun (fun_id),
    fun_kodas varchar(20),
    fun_pavad varchar(150)
);
