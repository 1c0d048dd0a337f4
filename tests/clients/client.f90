! A Fortran program that calls the library without an interface layer: CHARACTER arguments bring
! their hidden lengths, everything goes by reference.
program client
  use, intrinsic :: iso_fortran_env, only: int32, int64, real64, error_unit
  implicit none
  integer(int64), external :: qobosp, iwdndx, qblnkc, iocvset, icnumc, ilog10
  real(real64), external :: mchcon, global_sysmis, lpwr10
  integer :: failures = 0
  character(len=8) :: field
  character(len=10) :: wide
  real(real64) :: value
  integer(int64) :: status

  call iocvsetdecchardot()
  value = 1234.5_real64
  call obocv(value, 5_int32, 8_int64, 2_int64, field, status)
  call check('obocv F8.2', status == 0 .and. field == ' 1234.50')
  value = 0
  call obicv(field, 5_int32, 8_int64, 2_int64, value, status)
  call check('obicv F8.2', status == 0 .and. value == 1234.5_real64)

  call obof(3.14159_real64, 8_int64, 2_int64, field, status)
  call check('obof', status == 0 .and. field == '    3.14')
  call encdcc(-0.5_real64, field, 3_int64, 4_int64, 1_int64, 0.0_real64)
  call check('encdcc', field == '   -.514')
  call obif('  12,34', 7_int64, 0_int64, value, status, 3_int32)
  call check('obif COMMA', status == 0 .and. value == 1234.0_real64)

  call check('qobosp', qobosp(global_sysmis(), field, 8_int64, 6_int64) == -1 .and. field == '     .  ')
  call check('mchcon', mchcon(10_int64) == 4503599627370496.0_real64)
  call check('lpwr10', lpwr10(3_int64) == 1000.0_real64 .and. ilog10(999.9999_real64) == 2)

  wide = 'abcdefghij'
  call chmvcc('XY', 1_int64, wide, 3_int64, 2_int64)
  call check('chmvcc', wide == 'abXYefghij')
  call chblkc(wide, 5_int64, 6_int64)
  call check('chblkc', wide == 'abXY')
  call check('qblnkc', qblnkc(wide, 5_int64, 6_int64) == -1)
  call check('icnumc', icnumc(wide, 3_int64) == 88)
  call check('iwdndx', iwdndx('FEB   ', 'JANFEBMAR', 3_int64, 3_int64, 3_int64) == 2)

  call obiah('4a6B', 4_int64, 0_int64, value, status)
  call oboah(value, 4_int64, 0_int64, field, status)
  call check('obiah, oboah', status == 0 .and. field(1:4) == '4A6B')

  if (failures /= 0) error stop 1
  print '(a)', 'client.f90: all checks passed'

contains

  subroutine check(name, ok)
    character(len=*), intent(in) :: name
    logical, intent(in) :: ok
    if (ok) return
    write (error_unit, '(2a)') 'FAILED: ', name
    failures = failures + 1
  end subroutine check

end program client
