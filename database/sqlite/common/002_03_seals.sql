-- The seals: what the books held at the closes, each bound to the one before by a hash.

-- One row for each close, roll-back and beginning. ant_irasai: the numbers of the records of history that it
-- covers, ant_sumos: totals of the month, ant_bukle: the fingerprints of all tables, ant_antspaudas: SHA-256
-- over the seal before, all this and the records.
create table bd_antspaudai (
    ant_id         integer primary key not null,
    ant_laikas     varchar(23) not null check (length(ant_laikas) <= 23),
    ant_login      varchar(30) check (length(ant_login) <= 30),
    ant_stotis     varchar(64) check (length(ant_stotis) <= 64),
    ant_ivykis     varchar(20) not null check (length(ant_ivykis) <= 20),
    ant_perid      integer check (typeof(ant_perid) in ('integer', 'null')),
    ant_irasai     text not null,
    ant_sumos      text not null,
    ant_bukle      text not null,
    ant_antspaudas varchar(64) not null check (length(ant_antspaudas) <= 64)
);

create trigger tr_bd_antspaudai_keisti before update on bd_antspaudai
begin
    select raise(abort, 'Antspaudai nekeičiami.');
end;

-- An "insert or replace" would delete without asking the trigger below.
create trigger tr_bd_antspaudai_pakeisti before insert on bd_antspaudai
when exists (select 1 from bd_antspaudai where ant_id = new.ant_id)
begin
    select raise(abort, 'Antspaudai nekeičiami.');
end;

create trigger tr_bd_antspaudai_trinti before delete on bd_antspaudai
begin
    select raise(abort, 'Antspaudai netrinami.');
end;

-- Counters are under no history: the engine's own check holds a damaged one against its index.
create index ix_sys_raktai_visi on sys_raktai (rak_lentele, rak_stulpelis, rak_paskutinis);
