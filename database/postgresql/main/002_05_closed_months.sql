-- Closed months stay closed: their journal lines and account balances are neither added nor changed nor
-- deleted, whichever program writes.

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
  and exists (select
              from bd_period v
              where v.per_menuo > 0
                and (v.per_metai, v.per_ketv, v.per_menuo) > (m.per_metai, m.per_ketv, m.per_menuo));

-- Refuses when one of the months is closed. A close that is under way holds the row of its month: whoever
-- writes into that month waits for it here, and the close for him. Who goes on seeing the books as they were
-- when his transaction began would not see what he waited for.
create function sys_saugoti_menesius(perids bigint[]) returns void
language plpgsql
as $$
declare
    refusal text;
    isolation text := current_setting('transaction_isolation');
begin
    if isolation <> 'read committed' then
        raise exception using message = format(
            'Įrašai ir sąskaitų likučiai keičiami tik „read committed“ lygio transakcijoje, o ši yra „%s“ lygio.',
            isolation);
    end if;
    perform from bd_period where per_id = any(perids) and per_menuo > 0 order by per_id for key share;
    select uzm_pranesimas into refusal
    from sys_uzdaryti_menesiai
    where uzm_perid = any(perids)
    order by uzm_perid
    limit 1;
    if found then
        raise exception using message = refusal;
    end if;
end $$;

-- One look at a statement's rows, not one at each: a close writes very many.
create function tr_saslik_uzdaryta() returns trigger
language plpgsql
as $$
begin
    perform sys_saugoti_menesius(array(select distinct ssl_perid::bigint from eilutes));
    return null;
end $$;

create function tr_saslik_uzdaryta_keista() returns trigger
language plpgsql
as $$
begin
    perform sys_saugoti_menesius(
        array(select ssl_perid::bigint from buvo union select ssl_perid::bigint from yra));
    return null;
end $$;

create function tr_saslik_uzdaryta_viskas() returns trigger
language plpgsql
as $$
begin
    perform sys_saugoti_menesius(array(select distinct ssl_perid::bigint from bd_saslik));
    return null;
end $$;

create trigger tr_bd_saslik_uzdaryta_nauja after insert on bd_saslik
referencing new table as eilutes
for each statement execute function tr_saslik_uzdaryta();

create trigger tr_bd_saslik_uzdaryta_keista after update on bd_saslik
referencing old table as buvo new table as yra
for each statement execute function tr_saslik_uzdaryta_keista();

create trigger tr_bd_saslik_uzdaryta_trinta after delete on bd_saslik
referencing old table as eilutes
for each statement execute function tr_saslik_uzdaryta();

create trigger tr_bd_saslik_uzdaryta_viskas before truncate on bd_saslik
for each statement execute function tr_saslik_uzdaryta_viskas();

-- What makes persons the same ones for updMatAsmUnq, which moves the references of all months to one of them.
create view sys_tie_patys_asmenys as
select senas.mat_id as tpa_senas, lieka.mat_id as tpa_lieka
from bd_matasm senas
join bd_matasm lieka
  on (lieka.mat_asm_kod, lieka.mat_padid, lieka.mat_prgid, upper(btrim(lieka.mat_pavad)))
     is not distinct from (senas.mat_asm_kod, senas.mat_padid, senas.mat_prgid, upper(btrim(senas.mat_pavad)))
 and lieka.mat_id < senas.mat_id;

create function tr_irasai_uzdaryta() returns trigger
language plpgsql
as $$
begin
    perform sys_saugoti_menesius(array(select distinct irs_perid::bigint from eilutes));
    return null;
end $$;

create function tr_irasai_uzdaryta_keista() returns trigger
language plpgsql
as $$
begin
    perform sys_saugoti_menesius(array(
        with permesti as (select b.irs_id
                          from buvo b
                          join yra y on to_jsonb(y) - 'irs_matid' = to_jsonb(b) - 'irs_matid'
                                    and y.irs_id = b.irs_id
                          join sys_tie_patys_asmenys on tpa_senas = b.irs_matid and tpa_lieka = y.irs_matid)
        select irs_perid::bigint from buvo where irs_id not in (select irs_id from permesti)
        union
        select irs_perid::bigint from yra where irs_id not in (select irs_id from permesti)));
    return null;
end $$;

create function tr_irasai_uzdaryta_viskas() returns trigger
language plpgsql
as $$
begin
    perform sys_saugoti_menesius(array(select distinct irs_perid::bigint from bd_irasai));
    return null;
end $$;

create trigger tr_bd_irasai_uzdaryta_nauja after insert on bd_irasai
referencing new table as eilutes
for each statement execute function tr_irasai_uzdaryta();

create trigger tr_bd_irasai_uzdaryta_keista after update on bd_irasai
referencing old table as buvo new table as yra
for each statement execute function tr_irasai_uzdaryta_keista();

create trigger tr_bd_irasai_uzdaryta_trinta after delete on bd_irasai
referencing old table as eilutes
for each statement execute function tr_irasai_uzdaryta();

create trigger tr_bd_irasai_uzdaryta_viskas before truncate on bd_irasai
for each statement execute function tr_irasai_uzdaryta_viskas();
