-- What every database of the system answers about itself.

create view dummy as select 1 as dummy_col;

-- The tables that people fill; those by which the database knows itself are left out.
create view systable as
select oid::bigint as table_id, relname::varchar(128) as table_name
from pg_class
where relkind = 'r' and relnamespace = current_schema()::regnamespace
  and relname not like 'sys\_%' and relname <> 'bd_versija';

create view syscolumn as
select table_id, attnum::integer as column_id, attname::varchar(128) as column_name
from systable
join pg_attribute on attrelid = table_id::oid
where attnum > 0 and not attisdropped
order by table_id, column_id;

-- Every reference of a column to a key: the foreign keys and those that sys_nuorodos adds.
-- rys_sava = 1: the referring row is a part of the other and goes with it.
create view sys_rysiai as
select t.relname::varchar(63) as rys_lentele, a.attname::varchar(63) as rys_stulpelis,
       i.relname::varchar(63) as rys_i_lentele, k.attname::varchar(63) as rys_i_stulpelis,
       (case when confdeltype = 'c' then 1 else 0 end)::smallint as rys_sava
from pg_constraint
join pg_class t on t.oid = conrelid
join pg_class i on i.oid = confrelid
join pg_attribute a on a.attrelid = conrelid and a.attnum = conkey[1]
join pg_attribute k on k.attrelid = confrelid and k.attnum = confkey[1]
where contype = 'f' and t.relnamespace = current_schema()::regnamespace
union all
select nuo_lentele, nuo_stulpelis, nuo_i_lentele, nuo_i_stulpelis, nuo_sava
from sys_nuorodos;
