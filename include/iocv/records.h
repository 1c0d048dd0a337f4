/* The process-wide settings records. They are plain exported data: a host may read them at any time
 * and change them while no conversion runs. Field order and widths are part of the interface. */
#ifndef IOCV_RECORDS_H
#define IOCV_RECORDS_H

#include <iocv/base.h>

IOCV_BEGIN_C

/* General settings. */
typedef struct IocvGeneralRecord {
  int64_t reserved;
  double system_missing; /* the number that stands for a missing value */
  double blank_value;    /* what a blank numeric field reads as */
  /* The rest is the host's: */
  int64_t limit;          /* 0x7FFFFFFFFFFFFFFF */
  int64_t host_values[3]; /* 53, 80, 42 */
  int64_t host_flags[2];  /* 1, -1 */
  int64_t host_zeros[8];
} IocvGeneralRecord;

typedef struct IocvGeneralText {
  char title[256]; /* the product's title, blank-padded */
  char blanks[256];
} IocvGeneralText;

/* System settings. */
typedef struct IocvSystemRecord {
  int64_t leading_zero; /* above 0: a 0 stands before the decimal character of a value below 1 */
  /* The rest is the host's: */
  int64_t host_values[7];    /* 100, 10, 40, 5, 8, 2, 1 */
  int64_t host_run[9];       /* -3, -4, -3, -3, -1, -1, -1, -1, -1 */
  int64_t host_negatives[3]; /* -1, -1, -1 */
  int64_t host_zeros[8];
} IocvSystemRecord;

typedef struct IocvSystemText {
  char system_missing; /* the character that shows a missing value */
  /* The rest is the host's: */
  char dot[255]; /* "." and blanks */
  char blanks[2][255];
} IocvSystemText;

/* Locale settings: four character codes. */
typedef struct IocvLocaleRecord {
  int64_t decimal;          /* 46 or 44 */
  int64_t grouping;         /* 44 or 46 */
  int64_t list_separator;   /* 44 or 59 */
  int64_t locale_thousands; /* as the C library's locale reports it */
} IocvLocaleRecord;

/* Machine constants; mchcon_ returns most of them by code. */
typedef struct IocvMachineRecord {
  double lowest_finite;
  double smallest_normal;
  double largest_finite;
  double epsilon;
  double largest_exponent_argument;
  double two_to_52;
  double largest_output;
  double largest_finite_again;
  double blanks; /* eight blank bytes */
  double above_lowest;
  double lowest_single;
  double highest_single;
  double largest_int32;
  double square_root; /* of two to the 1023rd */
  double cube_root;
  double fourth_root;
} IocvMachineRecord;

typedef struct IocvMachineText {
  char zeros[8];
  char marks[8]; /* eight question marks */
} IocvMachineText;

/* Date settings; the first six fields and the month text are working storage of date output. */
typedef struct IocvDateRecord {
  double seconds; /* [0, 60), with the fraction */
  int64_t year;
  int64_t month; /* 1..12 */
  int64_t day;   /* 1..31 */
  int64_t hour;
  int64_t minute;
  int64_t century_begin; /* first year of the hundred that two digits name */
  int64_t century_mode;  /* stored, never consulted */
} IocvDateRecord;

typedef struct IocvDateText {
  char month[3]; /* "JAN".."DEC" */
} IocvDateText;

/* The threshold below which the general numeric format turns to an exponent. */
typedef struct IocvSmallRecord {
  double small;
} IocvSmallRecord;

extern IOCV_API IocvGeneralRecord cmnglb_;
extern IOCV_API IocvGeneralText cmaglb_;
extern IOCV_API IocvSystemRecord cmnsys_;
extern IOCV_API IocvSystemText cmasys_;
extern IOCV_API IocvLocaleRecord cmnloc_;
extern IOCV_API IocvMachineRecord cmnmch_;
extern IOCV_API IocvMachineText cmamch_;
extern IOCV_API IocvDateRecord cmndtm_;
extern IOCV_API IocvDateText cmadtm_;
extern IOCV_API IocvSmallRecord cmnobog_;

IOCV_END_C

#endif
