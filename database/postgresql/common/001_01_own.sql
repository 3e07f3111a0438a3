-- The tables by which a database knows itself.

-- The last key handed out of each column that draws its keys from GetNextTableColumnId.
create table sys_raktai (
    rak_lentele    varchar(63) not null,
    rak_stulpelis  varchar(63) not null,
    rak_paskutinis bigint not null,
    primary key (rak_lentele, rak_stulpelis)
);

-- References that a foreign key cannot state, because the row referred to may be missing for a while.
-- nuo_sava = 1: the referring row is a part of the other, it does not count as a use of it.
create table sys_nuorodos (
    nuo_lentele     varchar(63) not null,
    nuo_stulpelis   varchar(63) not null,
    nuo_i_lentele   varchar(63) not null,
    nuo_i_stulpelis varchar(63) not null,
    nuo_sava        smallint default 0 not null,
    primary key (nuo_lentele, nuo_stulpelis)
);

-- Municipalities.
create table bd_savivaldybes (
    sav_kod   smallint primary key not null,
    sav_pavad varchar(100)
);
