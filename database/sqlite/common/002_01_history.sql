-- The history of changes.

-- One record for each row that a person changed, made in the same transaction.
-- ist_raktas: the values of the row's key joined with '|'; of a row whose key changed the new one.
-- ist_veiksmas: I inserted, U updated, D deleted, R balances moved by a routine (key: the period).
-- ist_buvo, ist_yra: JSON objects of column and value, of an update only the changed columns. A picture is an
-- object of its size and checksum, a password the text "pakeista". Of a routine they are the number of rows and
-- the sums of the amounts.
-- ist_login: null for a change by a program that no person has logged in to.
-- ist_suma: the check sum of all columns but the number.
create table bd_istorija (
    ist_id       integer primary key autoincrement,
    ist_laikas   varchar(23) not null check (length(ist_laikas) = 23),
    ist_login    varchar(30) check (length(ist_login) <= 30),
    ist_stotis   varchar(64) check (length(ist_stotis) <= 64),
    ist_lentele  varchar(40) not null check (length(ist_lentele) <= 40 and ist_lentele not glob '*[^a-z0-9_]*'),
    ist_raktas   varchar(200) not null check (length(ist_raktas) <= 200),
    ist_veiksmas varchar(1) not null check (ist_veiksmas in ('I', 'U', 'D', 'R')),
    ist_buvo     text check (ist_buvo is null or json_valid(ist_buvo)),
    ist_yra      text check (ist_yra is null or json_valid(ist_yra)),
    ist_pedsakas text check (ist_pedsakas is null or json_valid(ist_pedsakas)),
    ist_suma     integer not null
);

create index ix_bd_istorija_laikas on bd_istorija (ist_laikas, ist_id);
create index ix_bd_istorija_eilute on bd_istorija (ist_lentele, ist_raktas, ist_id);
-- The station stands in it so that the engine's own check holds a damaged one against the index.
create index ix_bd_istorija_login on bd_istorija (ist_login, ist_laikas, ist_id, ist_stotis);

create trigger tr_bd_istorija_keista before update on bd_istorija
begin
    select raise(abort, 'Pakeitimų istorijos įrašai nekeičiami.');
end;

create trigger tr_bd_istorija_trinta before delete on bd_istorija
begin
    select raise(abort, 'Pakeitimų istorijos įrašai netrinami.');
end;

-- An "insert or replace" would delete without asking the trigger above.
create trigger tr_bd_istorija_pakeista before insert on bd_istorija
when exists (select 1 from bd_istorija where ist_id = new.ist_id)
begin
    select raise(abort, 'Pakeitimų istorijos įrašai nekeičiami.');
end;

-- The tables that people fill; those by which the database knows and guards itself are left out.
drop view systable;

create view systable as
select rowid as table_id, name as table_name
from sqlite_schema
where type = 'table' and name not glob 'sqlite_*' and name not glob 'sys_*'
  and name not in ('bd_versija', 'bd_istorija', 'bd_antspaudai');
