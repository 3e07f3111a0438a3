-- screen: TPeriodDlg, session: mnFin_Db
SELECT *
FROM bd_period
;;
-- screen: TPeriodDlg, session: mnFin_Db
delete from bd_period
;;
-- screen: TPeriodDlg, session: mnFin_Db
insert into bd_period
values (8, 2005, 1, 3) commit
;;
-- screen: TPerCloseDlg, session: mnFin_Db
-- param perid = 6
SELECT
  ssl_perid,
  SUM(ssl_sum_db) as db_sum,
  SUM(ssl_sum_kr) as kr_sum
FROM
  bd_SasLik
WHERE
  ssl_perid=:perid
GROUP BY
  ssl_perid
;;
-- screen: TPerCloseDlg, session: mnFin_Db
call Close_Per()
;;
-- screen: PeriodBack, session: mnFin_Db
select count(*) from bd_period where ISNULL(per_menuo,0)>0
;;
-- screen: TPerBackDlg, session: mnFin_Db
call Back_Per()
;;
