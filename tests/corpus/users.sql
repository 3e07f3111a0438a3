-- screen: TUsersFrm, session: mnRavl
select *
from bd_usr
;;
-- screen: TUsersFrm, session: mnRavl
select usr_id, usr_vardas, usr_pavarde, usr_name
from bd_usr
;;
-- screen: TUsersFrm, session: mnRavl
select IsNull(max(usr_id)+1,1) from bd_usr
;;
-- screen: TUsersFrm, session: mnRavl
delete from bd_usrkdv where udv_usrid=1
;;
-- screen: TUsersFrm, session: mnRavl
delete from bd_usr where usr_id=1
;;
-- screen: TEditUserDlg, session: mnRavl
SELECT
  fin_pavad,  
  fin_id
FROM bd_fin
;;
-- screen: TEditUserDlg, session: mnRavl
-- param ORG_KDV = 5
SELECT
  kdv_pav,
  kdv_id
FROM bd_kdv
WHERE
  (POWER(2, (KDV_ID-1)) & :ORG_KDV) <> 0
;;
-- screen: TEditUserDlg, session: mnRavl
-- param id = 1
SELECT *
FROM bd_usr, bd_usrkdv
WHERE
  usr_id=:id AND
  udv_usrid=usr_id
;;
-- screen: TEditUserDlg, session: mnRavl
-- param id = 1
SELECT usr_name, usr_vardas, usr_pavarde, usr_perziurai, usr_user_admin, udv_finid, udv_kdv
FROM bd_usr, bd_usrkdv
WHERE
  usr_id=:id AND
  udv_usrid=usr_id
;;
-- screen: TEditUserDlg, session: mnRavl
-- param id = 1
select *
from bd_usr
where usr_id=:id
;;
-- screen: TEditUserDlg, session: mnRavl
-- param id = 1
select *
from bd_usrkdv
where udv_usrid=:id
;;
-- screen: TEditUserDlg, session: mnRavl
-- param id = 1
delete from bd_usrkdv where udv_usrid=:id
;;
-- screen: TEditUserDlg, session: mnRavl
select count() from bd_usr where usr_user_admin = 1 and usr_id <> 0
;;
-- screen: Add_ChUser, session: mnRavl
-- param usr_id = 2
-- param usr_name = 'jonas'
-- param usr_vardas = 'Jonas'
-- param usr_pavarde = 'Šimkus'
-- param usr_pasw = 'O''Brien'
-- param usr_perziurai = 1
-- param usr_user_admin = 0
insert into bd_usr (usr_id, usr_name, usr_vardas, usr_pavarde, usr_pasw, usr_perziurai, usr_user_admin)
values (:usr_id, :usr_name, :usr_vardas, :usr_pavarde, :usr_pasw, :usr_perziurai, :usr_user_admin)
;;
-- screen: Add_ChUser, session: mnRavl
-- param usr_name = 'ona2'
-- param usr_perziurai = 1
-- param OLD_usr_id = 1
update bd_usr set usr_name = :usr_name, usr_perziurai = :usr_perziurai where usr_id = :OLD_usr_id
;;
-- screen: Add_ChUser, session: mnRavl
-- param udv_usrid = 1
-- param udv_finid = 1
-- param udv_kdv = 5
insert into bd_usrkdv (udv_usrid, udv_finid, udv_kdv) values (:udv_usrid, :udv_finid, :udv_kdv)
;;
