-- What the program reads first of a database.

-- One row: how far the schema has come and which of the two books it is.
create table bd_versija (
    ver_id      integer default 1 not null check (ver_id = 1) check (typeof(ver_id) = 'integer'),
    ver_knyga   varchar(10) not null check (length(ver_knyga) <= 10),
    ver_numeris integer not null check (typeof(ver_numeris) = 'integer'),
    primary key (ver_id)
);
