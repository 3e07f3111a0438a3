-- What the database keeps by itself.

-- A department's code is unique without regard to case.
create unique index ix_bd_pad_kodas on bd_pad (upper(pad_kodas));

-- A counterparty's contracts go with it.
create function tr_dbkrasm_sutartys() returns trigger
language plpgsql
as $$
begin
    delete from bd_dbkrsut where dks_dkaid = old.dka_id;
    return null;
end $$;

create trigger tr_bd_dbkrasm_sutartys after delete on bd_dbkrasm
for each row execute function tr_dbkrasm_sutartys();

-- The total of an estimate's corrections: of a quarter its own, of the yearly row all four.
create function sys_sam_kor(jveid bigint, perid bigint) returns numeric
language sql stable
as $$
    select coalesce(sum(case perid - y.sam_perid
                        when 0 then sak_i_ketv + sak_ii_ketv + sak_iii_ketv + sak_iv_ketv
                        when 1 then sak_i_ketv
                        when 2 then sak_ii_ketv
                        when 3 then sak_iii_ketv
                        when 4 then sak_iv_ketv
                        end), 0)
    from bd_samatos y
    join bd_samkor on sak_samid = y.sam_id
    where y.sam_jveid = jveid
      and y.sam_perid = perid - coalesce((select per_ketv from bd_period where per_id = perid), 0)
$$;

create function tr_samatos_kor() returns trigger
language plpgsql
as $$
begin
    new.sam_sam_kor := sys_sam_kor(new.sam_jveid, new.sam_perid);
    return new;
end $$;

create trigger tr_bd_samatos_kor before insert or update of sam_jveid, sam_perid on bd_samatos
for each row execute function tr_samatos_kor();

create function tr_samkor() returns trigger
language plpgsql
as $$
begin
    update bd_samatos r
    set sam_sam_kor = sys_sam_kor(r.sam_jveid, r.sam_perid)
    from bd_samatos y
    where y.sam_id in (old.sak_samid, new.sak_samid)
      and r.sam_jveid = y.sam_jveid and r.sam_perid between y.sam_perid and y.sam_perid + 4;
    return null;
end $$;

create trigger tr_bd_samkor_kor after insert or update or delete on bd_samkor
for each row execute function tr_samkor();
