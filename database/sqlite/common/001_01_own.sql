-- The tables by which a database knows itself.

-- The last key handed out of each column that draws its keys from GetNextTableColumnId.
create table sys_raktai (
    rak_lentele    varchar(63) not null check (length(rak_lentele) <= 63),
    rak_stulpelis  varchar(63) not null check (length(rak_stulpelis) <= 63),
    rak_paskutinis integer not null check (typeof(rak_paskutinis) = 'integer'),
    primary key (rak_lentele, rak_stulpelis)
);

-- References that a foreign key cannot state, because the row referred to may be missing for a while.
-- nuo_sava = 1: the referring row is a part of the other, it does not count as a use of it.
create table sys_nuorodos (
    nuo_lentele     varchar(63) not null check (length(nuo_lentele) <= 63),
    nuo_stulpelis   varchar(63) not null check (length(nuo_stulpelis) <= 63),
    nuo_i_lentele   varchar(63) not null check (length(nuo_i_lentele) <= 63),
    nuo_i_stulpelis varchar(63) not null check (length(nuo_i_stulpelis) <= 63),
    nuo_sava        smallint default 0 not null check (typeof(nuo_sava) = 'integer'),
    primary key (nuo_lentele, nuo_stulpelis)
);

-- Municipalities.
create table bd_savivaldybes (
    sav_kod   smallint primary key not null check (typeof(sav_kod) = 'integer'),
    sav_pavad varchar(100) check (length(sav_pavad) <= 100)
);
