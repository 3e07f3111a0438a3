-- screen: TAtsAsmFrm, session: mnFin_Db
select ats_id, ats_asm_kod, sas_sasnr+'  '+sas_pavad saskaita, ats_pav, prg_pavad from bd_atsasm, bd_prg, bd_sasplan where prg_id=ats_prgid and sas_id=ats_sasid
;;
-- screen: TAtsAsmFrm, session: mnFin_Db
select f_CheckUsed('bd_atsasm', 'ats_id', '1') from dummy
;;
-- screen: TAtsAsmFrm, session: mnFin_Db
delete from bd_atsasm where ats_id=1
;;
-- screen: TEditAtAsmDlg, session: mnFin_Db
-- param id = 0
select * from BD_ATSASM where ats_id =:id
;;
-- screen: TEditAtAsmDlg, session: mnFin_Db
select prg_Pavad, prg_Id from bd_prg
;;
-- screen: TEditAtAsmDlg, session: mnFin_Db
select MAX(ats_id) from bd_atsasm
;;
-- screen: TEditAtAsmDlg, session: mnFin_Db
-- param ats_id = 1
-- param ats_pav = 'Rūta Ąžuolaitė'
-- param ats_asm_kod = '48001010000'
-- param ats_sasid = 1
-- param ats_prgid = 1
insert into bd_atsasm (ats_id, ats_pav, ats_asm_kod, ats_sasid, ats_prgid)
values (:ats_id, :ats_pav, :ats_asm_kod, :ats_sasid, :ats_prgid)
;;
-- screen: TEditAtAsmDlg, session: mnFin_Db
-- param ats_pav = 'Rūta Žukaitė'
-- param OLD_ats_id = 1
update bd_atsasm set ats_pav = :ats_pav where ats_id = :OLD_ats_id
;;
-- screen: TMatAsmFrm, session: mnFin_Db
select MAT_ID, MAT_ASM_KOD, MAT_PADID, MAT_PAVAD, MAT_PRGID, PAD_PAVAD, PRG_PAVAD from bd_matasm, bd_pad, bd_prg where MAT_PADID = PAD_ID and MAT_PRGID = PRG_Id
;;
-- screen: TMatAsmFrm, session: mnFin_Db
select f_CheckUsed('bd_matasm', 'mat_id', '1') from dummy
;;
-- screen: TMatAsmFrm, session: mnFin_Db
delete from bd_matasm where mat_id=1
;;
-- screen: TMatAsmFrm, session: mnFin_Db
CALL updMatAsmUnq()
;;
-- screen: TEditMatAsmDlg, session: mnFin_Db
-- param id = 0
select * from Bd_MatAsm where MAT_ID =:id
;;
-- screen: TEditMatAsmDlg, session: mnFin_Db
select PAD_PAVAD, PAD_ID from Bd_Pad
;;
-- screen: TEditMatAsmDlg, session: mnFin_Db
select PRG_PAVAD, PRG_ID from Bd_Prg
;;
-- screen: TEditMatAsmDlg, session: mnFin_Db
select max(mat_id) from bd_matasm
;;
-- screen: TEditMatAsmDlg, session: mnFin_Db
-- param mat_id = 1
-- param mat_pavad = 'Rūta Ąžuolaitė'
-- param mat_asm_kod = '48001010000'
-- param mat_padid = 1
-- param mat_prgid = 1
insert into bd_matasm (mat_id, mat_pavad, mat_asm_kod, mat_padid, mat_prgid)
values (:mat_id, :mat_pavad, :mat_asm_kod, :mat_padid, :mat_prgid)
;;
-- screen: TEditMatAsmDlg, session: mnFin_Db
-- param mat_pavad = 'Rūta Žukaitė'
-- param OLD_mat_id = 1
update bd_matasm set mat_pavad = :mat_pavad where mat_id = :OLD_mat_id
;;
