-- Closed months stay closed: their journal lines and account balances are neither added nor changed nor
-- deleted, whichever program writes. All of it is made of built-in functions, so that every program is
-- refused alike.

-- The closed months, those after which another one stands, and what is said of them.
create view sys_uzdaryti_menesiai as
select m.per_id as uzm_perid,
       m.per_metai || ' m. ' || case (m.per_ketv - 1) * 3 + m.per_menuo
                                when 1 then 'sausio'
                                when 2 then 'vasario'
                                when 3 then 'kovo'
                                when 4 then 'balandžio'
                                when 5 then 'gegužės'
                                when 6 then 'birželio'
                                when 7 then 'liepos'
                                when 8 then 'rugpjūčio'
                                when 9 then 'rugsėjo'
                                when 10 then 'spalio'
                                when 11 then 'lapkričio'
                                when 12 then 'gruodžio'
                                else m.per_ketv || '/' || m.per_menuo
                                end
           || ' mėnuo uždarytas: jo įrašai ir sąskaitų likučiai nekeičiami.' as uzm_pranesimas
from bd_period m
where m.per_menuo > 0
  and exists (select 1
              from bd_period v
              where v.per_menuo > 0
                and (v.per_metai, v.per_ketv, v.per_menuo) > (m.per_metai, m.per_ketv, m.per_menuo));

-- raise() takes a fixed text only, which cannot name the month. A path that is none makes json_extract() fail
-- with the path in its message; the program shows the path alone. The raise() that follows is never reached:
-- it is what makes the engine expect that the statement may have to be taken back as a whole.
--
-- Triggers of new and changed rows look at the row that has the key already as well: "or replace" removes it
-- without asking the trigger of deletions.

create trigger tr_bd_saslik_uzdaryta_nauja before insert on bd_saslik
begin
    select json_extract('{}', uzm_pranesimas), raise(abort, '') from sys_uzdaryti_menesiai where uzm_perid = new.ssl_perid;
    select json_extract('{}', uzm_pranesimas), raise(abort, '')
    from bd_saslik join sys_uzdaryti_menesiai on uzm_perid = ssl_perid
    where ssl_id = new.ssl_id;
end;

create trigger tr_bd_saslik_uzdaryta_keista before update on bd_saslik
begin
    select json_extract('{}', uzm_pranesimas), raise(abort, '') from sys_uzdaryti_menesiai where uzm_perid = old.ssl_perid;
    select json_extract('{}', uzm_pranesimas), raise(abort, '') from sys_uzdaryti_menesiai where uzm_perid = new.ssl_perid;
    select json_extract('{}', uzm_pranesimas), raise(abort, '')
    from bd_saslik join sys_uzdaryti_menesiai on uzm_perid = ssl_perid
    where ssl_id = new.ssl_id;
end;

create trigger tr_bd_saslik_uzdaryta_trinta before delete on bd_saslik
begin
    select json_extract('{}', uzm_pranesimas), raise(abort, '') from sys_uzdaryti_menesiai where uzm_perid = old.ssl_perid;
end;

-- What makes persons the same ones for updMatAsmUnq, which moves the references of all months to one of them.
-- The key is null where a name has letters whose case the built-in functions do not know. Such names are the
-- same when they are so letter by letter: beyond ASCII the two cases of a letter are 1, 32 or 80 code points
-- apart, which a few pairs of other letters are, too.
create view sys_tie_patys_asmenys as
with asmenys as not materialized (
    select mat_id, mat_asm_kod, mat_padid, mat_prgid, vardas,
           case when not vardas glob '*[^ -~ĄČĘĖĮŠŲŪŽąčęėįšųūž]*' then lt_raktas(vardas) end as raktas
    from (select *, coalesce(trim(mat_pavad), '') as vardas from bd_matasm))
select senas.mat_id as tpa_senas, lieka.mat_id as tpa_lieka
from asmenys senas
join asmenys lieka
  on (lieka.mat_asm_kod, lieka.mat_padid, lieka.mat_prgid)
     is (senas.mat_asm_kod, senas.mat_padid, senas.mat_prgid)
 and coalesce(lieka.raktas = senas.raktas,
              length(lieka.vardas) = length(senas.vardas)
              and not exists (
                  with recursive vietos (vieta) as (
                      select 1 union all select vieta + 1 from vietos where vieta < length(lieka.vardas)),
                  raides (viena, kita) as (
                      select substr(lieka.vardas, vieta, 1), substr(senas.vardas, vieta, 1) from vietos)
                  select 1
                  from raides
                  where lower(viena) <> lower(kita)
                    and not (min(unicode(viena), unicode(kita)) > 127
                             and abs(unicode(viena) - unicode(kita)) in (1, 32, 80))))
 and lieka.mat_id < senas.mat_id;

create trigger tr_bd_irasai_uzdaryta_nauja before insert on bd_irasai
begin
    select json_extract('{}', uzm_pranesimas), raise(abort, '') from sys_uzdaryti_menesiai where uzm_perid = new.irs_perid;
    select json_extract('{}', uzm_pranesimas), raise(abort, '')
    from bd_irasai join sys_uzdaryti_menesiai on uzm_perid = irs_perid
    where irs_id = new.irs_id;
end;

create trigger tr_bd_irasai_uzdaryta_keista before update on bd_irasai
when not ((old.irs_id, old.irs_perid, old.irs_data, old.irs_dok, old.irs_sasid,
           old.irs_sum_db, old.irs_sum_kr, old.irs_dkaid, old.irs_padid, old.irs_jveid,
           old.irs_asig_db, old.irs_asig_kr, old.irs_kas_db, old.irs_kas_kr, old.irs_fak_db, old.irs_fak_kr,
           old.irs_atsid, old.irs_kasid, old.irs_einid)
          is (new.irs_id, new.irs_perid, new.irs_data, new.irs_dok, new.irs_sasid,
              new.irs_sum_db, new.irs_sum_kr, new.irs_dkaid, new.irs_padid, new.irs_jveid,
              new.irs_asig_db, new.irs_asig_kr, new.irs_kas_db, new.irs_kas_kr, new.irs_fak_db, new.irs_fak_kr,
              new.irs_atsid, new.irs_kasid, new.irs_einid)
          and exists (select 1
                      from sys_tie_patys_asmenys
                      where tpa_senas = old.irs_matid and tpa_lieka = new.irs_matid))
begin
    select json_extract('{}', uzm_pranesimas), raise(abort, '') from sys_uzdaryti_menesiai where uzm_perid = old.irs_perid;
    select json_extract('{}', uzm_pranesimas), raise(abort, '') from sys_uzdaryti_menesiai where uzm_perid = new.irs_perid;
    select json_extract('{}', uzm_pranesimas), raise(abort, '')
    from bd_irasai join sys_uzdaryti_menesiai on uzm_perid = irs_perid
    where irs_id = new.irs_id;
end;

create trigger tr_bd_irasai_uzdaryta_trinta before delete on bd_irasai
begin
    select json_extract('{}', uzm_pranesimas), raise(abort, '') from sys_uzdaryti_menesiai where uzm_perid = old.irs_perid;
end;
