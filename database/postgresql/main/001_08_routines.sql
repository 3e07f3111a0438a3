-- Functions and routines of the main database.

-- The first day of a period; of a quarter or year its first day too.
create function getdatebyperiodid(perid double precision) returns date
language sql stable strict parallel safe
as $$
    select make_date(per_metai, greatest((per_ketv - 1) * 3, 0) + greatest(coalesce(per_menuo, 0), 1), 1)
    from bd_period
    where per_id = perid::bigint
$$;

-- The last month.
create function get_last_per_id() returns bigint
language sql stable parallel safe
as $$
    select per_id from bd_period where per_menuo > 0
    order by per_metai desc, per_ketv desc, per_menuo desc
    limit 1
$$;

-- How many lines of the balance-sheet form whose code is like the pattern claim an account.
create function checksasinbalform(sasid double precision, sablonas text) returns bigint
language sql stable parallel safe
as $$
    select count(*) from bd_balsas where bss_sasid = sasid::bigint and upper(bss_balkod) like upper(sablonas)
$$;

-- The last month, locked so that no other station closes or rolls it back at the same moment.
create function sys_uzrakinti_perioda() returns bd_period
language plpgsql
as $$
declare
    paskutinis bd_period;
begin
    select * into paskutinis from bd_period where per_menuo > 0
    order by per_metai desc, per_ketv desc, per_menuo desc
    limit 1 for update;
    if not found then
        raise exception 'Nenustatytas darbo pradžios periodas.';
    end if;
    if paskutinis.per_id <> get_last_per_id() then
        raise exception 'Periodą ką tik pakeitė kita darbo vieta.';
    end if;
    return paskutinis;
end $$;

-- Adds the month after this one, and the year with its quarters where a new one begins. The month's id.
create function sys_prideti_menesi(dabar bd_period) returns bigint
language plpgsql
as $$
declare
    nr constant integer := dabar.per_metai * 12 + (dabar.per_ketv - 1) * 3 + dabar.per_menuo;
    metai constant integer := nr / 12;
    perid bigint;
begin
    if not exists (select from bd_period
                   where per_metai = metai and per_ketv = 0 and coalesce(per_menuo, 0) = 0) then
        insert into bd_period
        select (select max(per_id) from bd_period) + 1 + ketv, metai, ketv, 0 from generate_series(0, 4) ketv;
    end if;
    insert into bd_period
    select max(per_id) + 1, metai, nr % 12 / 3 + 1, nr % 3 + 1 from bd_period
    returning per_id into perid;
    return perid;
end $$;

-- The three tables of balances, each carried from one month into the next by one statement: what the month
-- began with and its entries, net on one side; what comes to nothing is not carried. The rows come in the
-- order of the indexes, which spares the server a third of the time.
create procedure sys_perkelti_saskaitas(nuo bigint, i bigint)
language sql
as $$
    insert into bd_saslik (ssl_id, ssl_sasid, ssl_perid, ssl_sum_db, ssl_sum_kr)
    select (select coalesce(max(ssl_id), 0) from bd_saslik) + row_number() over (order by sasid),
           sasid, i, greatest(suma, 0), greatest(-suma, 0)
    from (select sasid, sum(suma) as suma
          from (select ssl_sasid as sasid, ssl_sum_db - ssl_sum_kr as suma
                from bd_saslik where ssl_perid = nuo
                union all
                select irs_sasid, irs_sum_db - irs_sum_kr
                from bd_irasai where irs_perid = nuo and irs_sasid is not null) as eilutes
          group by sasid
          having sum(suma) <> 0) as likuciai
$$;

create procedure sys_perkelti_islaidas(nuo bigint, i bigint)
language sql
as $$
    insert into bd_isllik (sml_id, sml_perid, sml_jveid, sml_asig_db, sml_asig_kr, sml_kas_db, sml_kas_kr,
                           sml_fak_db, sml_fak_kr)
    select (select coalesce(max(sml_id), 0) from bd_isllik) + row_number() over (order by jveid), i, jveid,
           greatest(asig, 0), greatest(-asig, 0), greatest(kas, 0), greatest(-kas, 0),
           greatest(fak, 0), greatest(-fak, 0)
    from (select jveid, sum(asig) as asig, sum(kas) as kas, sum(fak) as fak
          from (select sml_jveid as jveid, sml_asig_db - sml_asig_kr as asig, sml_kas_db - sml_kas_kr as kas,
                       sml_fak_db - sml_fak_kr as fak
                from bd_isllik where sml_perid = nuo
                union all
                select irs_jveid, irs_asig_db - irs_asig_kr, irs_kas_db - irs_kas_kr, irs_fak_db - irs_fak_kr
                from bd_irasai where irs_perid = nuo and irs_jveid is not null) as eilutes
          group by jveid
          having sum(asig) <> 0 or sum(kas) <> 0 or sum(fak) <> 0) as likuciai
$$;

-- Entries of a counterparty count on the two accounts that it settles on.
create procedure sys_perkelti_dbkr(nuo bigint, i bigint)
language sql
as $$
    insert into bd_dbkrlik (dkl_id, dkl_perid, dkl_dkaid, dkl_sasid, dkl_i_kod, dkl_pavad, dkl_sum_db,
                            dkl_sum_kr, dkl_padid)
    select (select coalesce(max(dkl_id), 0) from bd_dbkrlik) + row_number() over (order by dkaid), i,
           dkaid, sasid, i_kod, pavad, greatest(suma, 0), greatest(-suma, 0), padid
    from (select dkaid, sasid, i_kod, pavad, padid, sum(suma) as suma
          from (select dkl_dkaid as dkaid, dkl_sasid as sasid, dkl_i_kod as i_kod, dkl_pavad as pavad,
                       dkl_padid as padid, dkl_sum_db - dkl_sum_kr as suma
                from bd_dbkrlik where dkl_perid = nuo
                union all
                select irs_dkaid, null, null, null, irs_padid, irs_sum_db - irs_sum_kr
                from bd_irasai
                join bd_dbkrasm on dka_id = irs_dkaid
                where irs_perid = nuo and irs_sasid in (dka_sasid, dka_sasid_2)) as eilutes
          group by dkaid, sasid, i_kod, pavad, padid
          having sum(suma) <> 0) as likuciai
$$;

create procedure sys_trinti_likucius(perid bigint)
language sql
as $$
    delete from bd_saslik where ssl_perid = perid;
    delete from bd_isllik where sml_perid = perid;
    delete from bd_dbkrlik where dkl_perid = perid;
$$;

-- Closes the last month and opens the next one. Where periods were set up anew over older books, balances of
-- the month that had this number before may still be there; they are no part of the new one.
create procedure close_per()
language plpgsql
set work_mem = '256MB'
as $$
declare
    dabar constant bd_period := sys_uzrakinti_perioda();
    kitas constant bigint := sys_prideti_menesi(dabar);
begin
    call sys_trinti_likucius(kitas);
    call sys_perkelti_saskaitas(dabar.per_id, kitas);
    call sys_perkelti_islaidas(dabar.per_id, kitas);
    call sys_perkelti_dbkr(dabar.per_id, kitas);
end $$;

-- Takes the last close back: removes the last month and its balances, and with the first month of a year the
-- year and its quarters, unless estimates refer to them. Entries stay for the month when it comes again.
create procedure back_per()
language plpgsql
as $$
declare
    dabar constant bd_period := sys_uzrakinti_perioda();
begin
    if (select count(*) from bd_period where per_menuo > 0) < 2 then
        raise exception 'Negalima atsukti darbo pradžios periodo!';
    end if;
    call sys_trinti_likucius(dabar.per_id);
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
create procedure p_calcdbkrlik(perid double precision)
language plpgsql
set work_mem = '256MB'
as $$
declare
    dabar constant bd_period := sys_uzrakinti_perioda();
    tikslas bd_period;
begin
    select * into tikslas from bd_period
    where per_id = coalesce(perid::bigint, dabar.per_id) and per_menuo > 0;
    if not found then
        raise exception 'Nėra mėnesio, kurio likučius reikia suskaičiuoti.';
    end if;
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
end $$;

-- Makes one of materially responsible persons with the same code, department, position and name (whatever
-- its case and outer blanks): the lowest key stays, what refers to the others is moved to it.
create procedure updmatasmunq()
language plpgsql
as $$
declare
    kartotiniai constant text :=
        'select mat_id as senas, lieka from (select mat_id, min(mat_id) over (partition by mat_asm_kod, '
        'mat_padid, mat_prgid, upper(btrim(mat_pavad))) as lieka from bd_matasm) as visi where mat_id <> lieka';
    nuoroda record;
begin
    lock table bd_matasm in share row exclusive mode;
    for nuoroda in select rys_lentele, rys_stulpelis from sys_rysiai
                   where rys_i_lentele = 'bd_matasm' and rys_i_stulpelis = 'mat_id'
    loop
        execute format('update %1$I set %2$I = lieka from (%3$s) as k where %2$I = senas',
                       nuoroda.rys_lentele, nuoroda.rys_stulpelis, kartotiniai);
    end loop;
    execute format('delete from bd_matasm where mat_id in (select senas from (%s) as k)', kartotiniai);
end $$;
