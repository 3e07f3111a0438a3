-- Routines that move balances leave one record for each table instead of one for each row. They have the rights of
-- the books' owner: nobody else may keep the rows' own records from being written.

-- How many rows a table of balances has in a period and what its amounts come to.
create function sys_suvestine(lentele text, perid bigint) returns jsonb
language plpgsql stable
as $$
declare
    sumos text;
    periodas text;
    suvestine jsonb;
begin
    select string_agg(format('%L, coalesce(sum(%I), 0)', attname, attname), ', ' order by attnum)
               filter (where atttypid = 'numeric'::regtype),
           max(attname) filter (where attname like '%\_perid')
    into sumos, periodas
    from pg_attribute
    where attrelid = lentele::regclass and attnum > 0 and not attisdropped;
    execute format('select jsonb_build_object(''eilutes'', count(*), %s) from %I where %I = $1',
                   sumos, lentele, periodas)
    into suvestine using perid;
    return suvestine;
end $$;

-- The fingerprint of a period in a table of balances.
create function sys_periodo_pedsakai(lentele text, perid bigint) returns jsonb
language plpgsql stable
as $$
begin
    return (select sys_pedsakai(lentele, format('%I = %s', attname, perid))
            from pg_attribute
            where attrelid = lentele::regclass and attname like '%\_perid' and not attisdropped);
end $$;

-- Keeping the rows' records from being written is the owner's to ask for; whoever else calls a routine, which has
-- the owner's rights, may have set it himself. The first thing that such a routine does.
create procedure sys_rutina_savininko()
language plpgsql
as $$
begin
    if not sys_savininkas(session_user) then
        perform set_config('velmora.rutina', '', true);
    end if;
end $$;

-- A routine begins to move balances of the period: what the tables hold of it, by their names. Null when no
-- record is wanted. What other stations are writing comes wholly before it or after; balances of accounts wait
-- for the month itself.
create function sys_rutina_prasideda(perid bigint, variadic lenteles text[]) returns jsonb
language plpgsql
as $$
begin
    if coalesce(current_setting('velmora.rutina', true), '') <> '' then
        return null;
    end if;
    perform set_config('velmora.rutina', 'taip', true);
    execute (select format('lock table %s in share row exclusive mode', string_agg(quote_ident(lentele), ', '))
             from unnest(lenteles) lentele where lentele <> 'bd_saslik');
    return (select jsonb_object_agg(lentele, jsonb_build_object('sumos', sys_suvestine(lentele, perid),
                                                                'pedsakai', sys_periodo_pedsakai(lentele, perid)))
            from unnest(lenteles) lentele);
end $$;

-- It has moved them; what the tables held before is the result of the function above.
create procedure sys_rutina_baigiasi(perid bigint, buvo jsonb)
language plpgsql
as $$
begin
    perform sys_irasyti_istorija(key, perid::text, 'R', value -> 'sumos', sys_suvestine(key, perid),
                                 sys_pedsaku_skirtumas(value -> 'pedsakai', sys_periodo_pedsakai(key, perid)))
    from jsonb_each(buvo) order by key;
    if buvo is not null then
        perform set_config('velmora.rutina', '', true);
    end if;
end $$;

-- Closes the last month and opens the next one. Where periods were set up anew over older books, balances of
-- the month that had this number before may still be there; they are no part of the new one.
create or replace procedure close_per()
language plpgsql security definer
set search_path = pg_catalog, public, pg_temp
set work_mem = '256MB'
as $$
declare
    dabar bd_period;
    kitas bigint;
    buvo jsonb;
begin
    call sys_rutina_savininko();
    dabar := sys_uzrakinti_perioda();
    kitas := sys_prideti_menesi(dabar);
    buvo := sys_rutina_prasideda(kitas, 'bd_saslik', 'bd_isllik', 'bd_dbkrlik');
    call sys_trinti_likucius(kitas);
    call sys_perkelti_saskaitas(dabar.per_id, kitas);
    call sys_perkelti_islaidas(dabar.per_id, kitas);
    call sys_perkelti_dbkr(dabar.per_id, kitas);
    call sys_rutina_baigiasi(kitas, buvo);
end $$;

-- Takes the last close back: removes the last month and its balances, and with the first month of a year the
-- year and its quarters, unless estimates refer to them. Entries stay for the month when it comes again.
create or replace procedure back_per()
language plpgsql security definer
set search_path = pg_catalog, public, pg_temp
as $$
declare
    dabar bd_period;
    buvo jsonb;
begin
    call sys_rutina_savininko();
    dabar := sys_uzrakinti_perioda();
    if (select count(*) from bd_period where per_menuo > 0) < 2 then
        raise exception 'Negalima atsukti darbo pradžios periodo!';
    end if;
    buvo := sys_rutina_prasideda(dabar.per_id, 'bd_saslik', 'bd_isllik', 'bd_dbkrlik');
    call sys_trinti_likucius(dabar.per_id);
    call sys_rutina_baigiasi(dabar.per_id, buvo);
    delete from bd_period where per_id = dabar.per_id;
    delete from bd_period
    where per_metai = dabar.per_metai
      and not exists (select from bd_period where per_metai = dabar.per_metai and per_menuo > 0)
      and not exists (select from bd_samatos join bd_period on per_id = sam_perid
                      where per_metai = dabar.per_metai);
end $$;

-- Computes the balances of debtors and creditors at the start of a month (null: the last one) from the
-- balances of the first month and the entries of all months before. They replace what the month holds; in the
-- first month nothing comes before.
create or replace procedure p_calcdbkrlik(perid double precision)
language plpgsql security definer
set search_path = pg_catalog, public, pg_temp
set work_mem = '256MB'
as $$
declare
    dabar bd_period;
    tikslas bd_period;
    buvo jsonb;
begin
    call sys_rutina_savininko();
    dabar := sys_uzrakinti_perioda();
    select * into tikslas from bd_period
    where per_id = coalesce(perid::bigint, dabar.per_id) and per_menuo > 0;
    if not found then
        raise exception 'Nėra mėnesio, kurio likučius reikia suskaičiuoti.';
    end if;
    buvo := sys_rutina_prasideda(tikslas.per_id, 'bd_dbkrlik');
    delete from bd_dbkrlik where dkl_perid = tikslas.per_id;
    insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_dkaid, dkl_sasid, dkl_i_kod, dkl_pavad, dkl_sum_db,
                            dkl_sum_kr, dkl_padid)
    select (select coalesce(max(dkl_id), 0) from bd_dbkrlik) + row_number() over (order by dkaid),
           tikslas.per_id,
           dkaid, sasid, i_kod, pavad, greatest(suma, 0), greatest(-suma, 0), padid
    from (select dkaid, sasid, i_kod, pavad, padid, sum(suma) as suma
          from (select dkl_dkaid as dkaid, dkl_sasid as sasid, dkl_i_kod as i_kod, dkl_pavad as pavad,
                       dkl_padid as padid, dkl_sum_db - dkl_sum_kr as suma
                from bd_dbkrlik where dkl_perid = (select per_id from bd_period where per_menuo > 0
                                                   order by per_metai, per_ketv, per_menuo limit 1)
                union all
                select irs_dkaid, null, null, null, irs_padid, irs_sum_db - irs_sum_kr
                from bd_irasai
                join bd_period p on p.per_id = irs_perid and p.per_menuo > 0
                                and (p.per_metai, p.per_ketv, p.per_menuo)
                                  < (tikslas.per_metai, tikslas.per_ketv, tikslas.per_menuo)
                join bd_dbkrasm on dka_id = irs_dkaid
                where irs_sasid in (dka_sasid, dka_sasid_2)) as eilutes
          group by dkaid, sasid, i_kod, pavad, padid
          having sum(suma) <> 0) as likuciai;
    call sys_rutina_baigiasi(tikslas.per_id, buvo);
end $$;
