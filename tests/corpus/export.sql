-- screen: TFrRavlExp, session: mnRavl
select table_name, table_id FROM systable where table_name not like 'ul_%' and table_name not like 'spt_%' and table_name not like 'sys_%' and table_name not like 'satmp_%'
and table_name not like 'rs_%' and table_name not like 'ml_%' and table_name not like 'ix_%' and table_name not like 'jdbc_%' and table_name not like 'migrate_%' order by table_name
;;
-- screen: TFrRavlExp, session: mnRavl
-- param tblid = 1
SELECT * FROM syscolumn where table_id = :tblid
;;
-- screen: TFrRavlExp, session: mnRavl
select usr_id, usr_name, usr_vardas, usr_pavarde, usr_pasw, usr_perziurai, usr_user_admin from bd_usr
;;
-- screen: TFrRavlExp, session: mnRavl
delete from bd_usrkdv;
;;
-- screen: TFrRavlExp, session: mnRavl
insert into bd_kdv(kdv_id,kdv_pav) values('4','Sandėlis');
;;
