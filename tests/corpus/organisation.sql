-- screen: TOrgFrm, session: mnFin_Db
select * from bd_org
;;
-- screen: TOrgFrm, session: mnFin_Db
select * from bd_org order by org_id
;;
-- screen: TOrgFrm, session: mnFin_Db
SELECT * FROM Bd_Savivaldybes ORDER BY Sav_Pavad
;;
-- screen: TOrgFrm, session: mnFin_Db
-- param org_pavad = 'Žolynų gimnazija'
-- param org_adr = 'Žolynų g. 1'
-- param org_i_kod = 190000000
-- param org_pvm_kod = null
-- param ORG_DRAUD_KOD = null
-- param Org_Savivaldybe = null
-- param Org_RejNum = null
-- param org_zenklas = null
update bd_org set org_pavad = :org_pavad, org_adr = :org_adr, org_i_kod = :org_i_kod, org_pvm_kod = :org_pvm_kod,
  ORG_DRAUD_KOD = :ORG_DRAUD_KOD, Org_Savivaldybe = :Org_Savivaldybe, Org_RejNum = :Org_RejNum, org_zenklas = :org_zenklas
;;
