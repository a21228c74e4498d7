/*
 * qvslm_records.h: the records that QVSLMTRANSLATE hands to its host.
 *
 * One struct for each kind of output record, for the text header and for the census. The first field
 * of an output record, RecordType, says which struct the host's buffer holds. Code 1 stands for two of
 * them, told apart by the file's mode: QvBandInterval in mode 4, that of a model 442 file whose mode
 * line (HeaderLine6 of QvFileHeaderInfo) begins with "RTA"; else QvInterval. All numbers are
 * little-endian, all fields naturally aligned, and the layouts below are proved by the compiler
 * that includes this header.
 *
 * The comment behind a field begins with what it holds:
 *
 *   level   a level in decibels; QV_NO_LEVEL (999.0) stands for no value
 *   dB      decibels, without a marker value
 *   time    seconds since 1970-01-01 00:00 UTC, converted from the instrument's clock by the host's
 *           time zone
 *   s       seconds, a length of time
 *   %       percent
 *   text    characters up to the first NUL, unless the comment says otherwise
 *   raw text  characters as the file holds them, without a NUL when they fill the field
 *
 * or with the source of the value where that alone is known: "register Q63" is the line with that
 * number of a 'Q' block, "position 86" a byte of the item's body counted from 0. Fields named
 * Reserved... are zero unless their comment tells otherwise.
 *
 * Plain C99, and C++17.
 */
#ifndef QVSLM_RECORDS_H
#define QVSLM_RECORDS_H

#include <stdint.h>

/** The value of a level field that has no value. Compare for equality. */
#define QV_NO_LEVEL 999.0f

/** Smallest size in bytes of the host's buffer for output records; align it to 4 bytes. */
#define QV_OUTPUT_RECORD_SIZE 6164

/* Compile-time proof of a layout. __builtin_offsetof is what <stddef.h> uses on the compilers
 * named; on others only the sizes are proved. */
#if defined(__cplusplus)
#define QV_LAYOUT_HOLDS(condition) static_assert(condition, #condition)
#else
#define QV_LAYOUT_HOLDS(condition) extern char qv_layout_holds[(condition) ? 1 : -1]
#endif
#define QV_LAYOUT_SIZE(type, size) QV_LAYOUT_HOLDS(sizeof(type) == (size))
#if defined(__GNUC__) || defined(__clang__) || defined(_MSC_VER)
#define QV_LAYOUT(type, field, offset) QV_LAYOUT_HOLDS(__builtin_offsetof(type, field) == (offset))
#else
#define QV_LAYOUT(type, field, offset) QV_LAYOUT_SIZE(type, sizeof(type))
#endif

/**
 * The head of a context, which hosts may read: where the walk through the file stands.
 */
typedef struct QvContextHead {
  int32_t FileOffset; /* offset in the file of the first byte that the next step reads */
  uint32_t
      BytesMissing; /* bytes that the last step used and the file does not have; 0: a whole step */
  int32_t Mode;     /* measurement mode by the mode line; 4: code 1 stands for QvBandInterval */
} QvContextHead;
QV_LAYOUT_SIZE(QvContextHead, 12);
QV_LAYOUT(QvContextHead, FileOffset, 0);
QV_LAYOUT(QvContextHead, BytesMissing, 4);
QV_LAYOUT(QvContextHead, Mode, 8);

/**
 * Code 1, from item 1 in every mode but 4: the results of one interval.
 *
 * Which blocks stand in the file is told by the 'Q' or 'M' item in force; IntervalFlags shows the
 * host what was there. Fields of a block that is absent are zero.
 *
 * IntervalFlags: 0x0004 auxiliary channels present (Aux0 to Aux2); 0x0008 Span2, Byte3 and mostly
 * Span1 present; 0x0010 the second auxiliary channel is enabled; 0x0100 Samples present; 0x0400
 * LevelC lies above the limit level of register Q62 (a LevelC without a value counts as above);
 * 0x0800 Table16 present; 0x1000 ThresholdOrLevel was read from the record.
 */
typedef struct QvInterval {
  uint16_t RecordType;        /* 1 */
  uint16_t SiteNumber;        /* site in force when the record was decoded */
  int32_t RecordTime;         /* time: start of the interval */
  uint16_t SettingFormat;     /* always 0 */
  uint8_t Reserved10[2];      /* zero */
  float Aux0;                 /* first auxiliary channel, in the channel's units */
  float Aux1;                 /* second auxiliary channel, in the channel's units */
  float Aux2;                 /* third auxiliary channel, in the channel's units */
  uint8_t Table16[16];        /* 16 raw bytes */
  uint8_t Reserved40[44];     /* zero */
  float FlaggedSamplePercent; /* %: share of Samples whose top bit was set */
  float Duration;             /* s */
  float ThresholdOrLevel;     /* level: the threshold of register Q61, or read from the record */
  uint16_t IntervalFlags;     /* bits, see above */
  uint8_t Reserved98[2];      /* zero */
  float LevelA;               /* level */
  float LevelC;               /* level */
  int32_t EndTime;            /* time: end of the interval */
  uint16_t Model;             /* instrument model: 431, 442 or another number */
  uint16_t Byte2;             /* body byte 22 */
  float LevelD;               /* level */
  uint16_t Byte1;             /* body byte 21 */
  uint8_t Reserved122[2];     /* zero */
  uint32_t RecordIndex;       /* 1 for the first interval of the file, then 2, 3 and so on */
  float LevelB;               /* level */
  float DurationPercent;      /* %: share of Duration that lies between RecordTime and EndTime */
  float SampleSpacing;        /* s: between Samples; 0 without them */
  uint8_t Reserved140[4];     /* zero */
  float LevelE;               /* level */
  float Span1;
  uint16_t Byte3;
  uint8_t Reserved154[2]; /* zero */
  float Span2;
  uint8_t Samples[256]; /* dB: whole decibels, ended by a 0 */
} QvInterval;
QV_LAYOUT_SIZE(QvInterval, 416);
QV_LAYOUT(QvInterval, RecordType, 0);
QV_LAYOUT(QvInterval, SiteNumber, 2);
QV_LAYOUT(QvInterval, RecordTime, 4);
QV_LAYOUT(QvInterval, SettingFormat, 8);
QV_LAYOUT(QvInterval, Reserved10, 10);
QV_LAYOUT(QvInterval, Aux0, 12);
QV_LAYOUT(QvInterval, Aux1, 16);
QV_LAYOUT(QvInterval, Aux2, 20);
QV_LAYOUT(QvInterval, Table16, 24);
QV_LAYOUT(QvInterval, Reserved40, 40);
QV_LAYOUT(QvInterval, FlaggedSamplePercent, 84);
QV_LAYOUT(QvInterval, Duration, 88);
QV_LAYOUT(QvInterval, ThresholdOrLevel, 92);
QV_LAYOUT(QvInterval, IntervalFlags, 96);
QV_LAYOUT(QvInterval, Reserved98, 98);
QV_LAYOUT(QvInterval, LevelA, 100);
QV_LAYOUT(QvInterval, LevelC, 104);
QV_LAYOUT(QvInterval, EndTime, 108);
QV_LAYOUT(QvInterval, Model, 112);
QV_LAYOUT(QvInterval, Byte2, 114);
QV_LAYOUT(QvInterval, LevelD, 116);
QV_LAYOUT(QvInterval, Byte1, 120);
QV_LAYOUT(QvInterval, Reserved122, 122);
QV_LAYOUT(QvInterval, RecordIndex, 124);
QV_LAYOUT(QvInterval, LevelB, 128);
QV_LAYOUT(QvInterval, DurationPercent, 132);
QV_LAYOUT(QvInterval, SampleSpacing, 136);
QV_LAYOUT(QvInterval, Reserved140, 140);
QV_LAYOUT(QvInterval, LevelE, 144);
QV_LAYOUT(QvInterval, Span1, 148);
QV_LAYOUT(QvInterval, Byte3, 152);
QV_LAYOUT(QvInterval, Reserved154, 154);
QV_LAYOUT(QvInterval, Span2, 156);
QV_LAYOUT(QvInterval, Samples, 160);

/**
 * Code 1, from item 1 in mode 4 (band analyser): three overall levels, each with its bands.
 *
 * 33 third-octave bands when the setup's flag 128 is set, else 11 octave bands; entries behind them
 * are zero.
 */
typedef struct QvBandInterval {
  uint16_t RecordType;    /* 1 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint16_t SettingFormat; /* always 0 */
  int32_t RecordTime;     /* time */
  float Duration;         /* s */
  uint8_t BandByte;       /* body byte 19 */
  uint8_t Reserved17[1];  /* zero */
  uint16_t BandValueB;    /* body bytes 17 and 18 */
  uint32_t RecordIndex;   /* 1 for the first interval of the file, then 2, 3 and so on */
  uint16_t BandValueA;    /* body bytes 15 and 16 */
  uint8_t Reserved26[2];  /* zero */
  float Overall1;         /* level */
  float Bands1[33];       /* level */
  float Overall2;         /* level */
  float Bands2[33];       /* level */
  float Overall3;         /* level */
  float Bands3[33];       /* level */
  uint16_t BandTrailer;   /* last byte of the body, from firmware above 2.10599 on; else 0 */
  uint8_t Reserved438[2]; /* zero */
} QvBandInterval;
QV_LAYOUT_SIZE(QvBandInterval, 440);
QV_LAYOUT(QvBandInterval, RecordType, 0);
QV_LAYOUT(QvBandInterval, SiteNumber, 2);
QV_LAYOUT(QvBandInterval, Model, 4);
QV_LAYOUT(QvBandInterval, SettingFormat, 6);
QV_LAYOUT(QvBandInterval, RecordTime, 8);
QV_LAYOUT(QvBandInterval, Duration, 12);
QV_LAYOUT(QvBandInterval, BandByte, 16);
QV_LAYOUT(QvBandInterval, Reserved17, 17);
QV_LAYOUT(QvBandInterval, BandValueB, 18);
QV_LAYOUT(QvBandInterval, RecordIndex, 20);
QV_LAYOUT(QvBandInterval, BandValueA, 24);
QV_LAYOUT(QvBandInterval, Reserved26, 26);
QV_LAYOUT(QvBandInterval, Overall1, 28);
QV_LAYOUT(QvBandInterval, Bands1, 32);
QV_LAYOUT(QvBandInterval, Overall2, 164);
QV_LAYOUT(QvBandInterval, Bands2, 168);
QV_LAYOUT(QvBandInterval, Overall3, 300);
QV_LAYOUT(QvBandInterval, Bands3, 304);
QV_LAYOUT(QvBandInterval, BandTrailer, 436);
QV_LAYOUT(QvBandInterval, Reserved438, 438);

/**
 * Code 2, from item 2 of general models, and of models 431 and 442 in modes 2 and 3: the summary of
 * a run.
 *
 * SummaryFlags: 0x0004 auxiliary channels present (Aux); 0x0008 Span1, Span2 and Byte5 present;
 * 0x0010 the second auxiliary channel is enabled; 0x0100 Distribution present; 0x0200 percentile
 * levels present.
 *
 * Distribution: three bytes of base level (whole decibels, tenths, hundredths), then 127 counts of
 * three bytes, high byte first; count k belongs to the level trunc(base) + k + 1.
 */
typedef struct QvSummary {
  uint16_t RecordType;    /* 2 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t RecordTime;     /* time */
  uint16_t SettingFormat; /* always 0 */
  uint8_t Reserved10[2];  /* zero */
  float Aux[3][3]; /* value by auxiliary channel, in the channel's units: Aux[j][k] is value j of
                      channel k */
  float Duration;  /* s */
  uint16_t SummaryFlags;      /* bits, see above */
  uint8_t Reserved54[2];      /* zero */
  float LevelA;               /* level */
  float LevelD;               /* level */
  float LevelC;               /* level */
  float PercentileLevels[6];  /* level: percentile levels (Ln) */
  uint16_t Model;             /* instrument model: 431, 442 or another number */
  uint8_t Reserved94[2];      /* zero */
  float PercentileNumbers[6]; /* %: the n of each percentile level */
  uint16_t Byte4;             /* body byte 26 */
  uint8_t Reserved122[2];     /* zero */
  float LevelE;               /* level */
  uint16_t Byte2;             /* body byte 24 */
  uint16_t Byte1;             /* body byte 23 */
  uint32_t RecordIndex;       /* 1 for the first summary of the file, then 2, 3 and so on */
  float LevelB;               /* level */
  float LevelF;               /* level */
  uint16_t Byte3;             /* body byte 25 */
  uint8_t Reserved146[2];     /* zero */
  float Span1;
  uint16_t Byte5;
  uint8_t Reserved154[2]; /* zero */
  float Span2;
  uint8_t DistributionPresent; /* 1 when Distribution is there */
  uint8_t Distribution[384];   /* level distribution, see above */
  uint8_t Reserved545[267];    /* zero */
} QvSummary;
QV_LAYOUT_SIZE(QvSummary, 812);
QV_LAYOUT(QvSummary, RecordType, 0);
QV_LAYOUT(QvSummary, SiteNumber, 2);
QV_LAYOUT(QvSummary, RecordTime, 4);
QV_LAYOUT(QvSummary, SettingFormat, 8);
QV_LAYOUT(QvSummary, Reserved10, 10);
QV_LAYOUT(QvSummary, Aux, 12);
QV_LAYOUT(QvSummary, Duration, 48);
QV_LAYOUT(QvSummary, SummaryFlags, 52);
QV_LAYOUT(QvSummary, Reserved54, 54);
QV_LAYOUT(QvSummary, LevelA, 56);
QV_LAYOUT(QvSummary, LevelD, 60);
QV_LAYOUT(QvSummary, LevelC, 64);
QV_LAYOUT(QvSummary, PercentileLevels, 68);
QV_LAYOUT(QvSummary, Model, 92);
QV_LAYOUT(QvSummary, Reserved94, 94);
QV_LAYOUT(QvSummary, PercentileNumbers, 96);
QV_LAYOUT(QvSummary, Byte4, 120);
QV_LAYOUT(QvSummary, Reserved122, 122);
QV_LAYOUT(QvSummary, LevelE, 124);
QV_LAYOUT(QvSummary, Byte2, 128);
QV_LAYOUT(QvSummary, Byte1, 130);
QV_LAYOUT(QvSummary, RecordIndex, 132);
QV_LAYOUT(QvSummary, LevelB, 136);
QV_LAYOUT(QvSummary, LevelF, 140);
QV_LAYOUT(QvSummary, Byte3, 144);
QV_LAYOUT(QvSummary, Reserved146, 146);
QV_LAYOUT(QvSummary, Span1, 148);
QV_LAYOUT(QvSummary, Byte5, 152);
QV_LAYOUT(QvSummary, Reserved154, 154);
QV_LAYOUT(QvSummary, Span2, 156);
QV_LAYOUT(QvSummary, DistributionPresent, 160);
QV_LAYOUT(QvSummary, Distribution, 161);
QV_LAYOUT(QvSummary, Reserved545, 545);

/**
 * Code 3, from item 3: the summary of a day.
 *
 * DayFlags: 0x0008 the block from Span1 to Bytes8 is present; 0x0040 register Q120 and 0x0080
 * register Q118 switched on the hourly counters; 0x0100 Distribution present; 0x0200 percentile
 * levels present. HourLevelsB and HourLevelsC have no flag: the firmware decides.
 *
 * Distribution begins like the one of QvSummary (base level, 127 counts) and ends with 56 further
 * bytes.
 */
typedef struct QvDaySummary {
  uint16_t RecordType;        /* 3 */
  uint16_t SiteNumber;        /* site in force when the record was decoded */
  int32_t RecordTime;         /* time: midnight at the start of the day */
  uint16_t SettingFormat;     /* always 0 */
  uint8_t Reserved10[2];      /* zero */
  float DayLevelC;            /* level */
  uint16_t DayFlags;          /* bits, see above */
  uint8_t Reserved18[2];      /* zero */
  float DayLevelA;            /* level */
  float DayLevelB;            /* level */
  float DayLevelE;            /* level */
  float DayLevelD;            /* level */
  float PercentileLevels[6];  /* level: percentile levels (Ln) */
  uint16_t Model;             /* instrument model: 431, 442 or another number */
  uint8_t Reserved62[2];      /* zero */
  float PercentileNumbers[6]; /* %: the n of each percentile level */
  float DayLevelF;            /* level */
  uint16_t Value2;
  uint16_t Value3;
  uint32_t RecordIndex; /* 1 for the first day summary of the file, then 2, 3 and so on */
  float Duration;       /* s */
  float DayLevelG;      /* level */
  float Span1;
  uint16_t Value1;
  uint16_t Bytes8[8]; /* eight single bytes */
  uint16_t Byte1;
  float Span2;
  int32_t DayTimeSeconds; /* s: a time of day, counted from midnight */
  uint16_t Byte2;
  uint8_t Reserved142[2];      /* zero */
  float HourLevels[24];        /* dB: by hour; negative or 0 where the record marks the hour */
  float HourLevelsC[24];       /* dB: by hour */
  float HourLevelsB[24];       /* dB: by hour */
  uint16_t HourCounts[24];     /* by hour */
  uint16_t HourValues[24];     /* by hour */
  uint16_t HourBcd[24];        /* by hour, from two packed decimal digits */
  uint8_t DistributionPresent; /* 1 when Distribution is there */
  uint8_t Distribution[440];   /* level distribution, see above */
  uint8_t Reserved1017[3];     /* zero */
} QvDaySummary;
QV_LAYOUT_SIZE(QvDaySummary, 1020);
QV_LAYOUT(QvDaySummary, RecordType, 0);
QV_LAYOUT(QvDaySummary, SiteNumber, 2);
QV_LAYOUT(QvDaySummary, RecordTime, 4);
QV_LAYOUT(QvDaySummary, SettingFormat, 8);
QV_LAYOUT(QvDaySummary, Reserved10, 10);
QV_LAYOUT(QvDaySummary, DayLevelC, 12);
QV_LAYOUT(QvDaySummary, DayFlags, 16);
QV_LAYOUT(QvDaySummary, Reserved18, 18);
QV_LAYOUT(QvDaySummary, DayLevelA, 20);
QV_LAYOUT(QvDaySummary, DayLevelB, 24);
QV_LAYOUT(QvDaySummary, DayLevelE, 28);
QV_LAYOUT(QvDaySummary, DayLevelD, 32);
QV_LAYOUT(QvDaySummary, PercentileLevels, 36);
QV_LAYOUT(QvDaySummary, Model, 60);
QV_LAYOUT(QvDaySummary, Reserved62, 62);
QV_LAYOUT(QvDaySummary, PercentileNumbers, 64);
QV_LAYOUT(QvDaySummary, DayLevelF, 88);
QV_LAYOUT(QvDaySummary, Value2, 92);
QV_LAYOUT(QvDaySummary, Value3, 94);
QV_LAYOUT(QvDaySummary, RecordIndex, 96);
QV_LAYOUT(QvDaySummary, Duration, 100);
QV_LAYOUT(QvDaySummary, DayLevelG, 104);
QV_LAYOUT(QvDaySummary, Span1, 108);
QV_LAYOUT(QvDaySummary, Value1, 112);
QV_LAYOUT(QvDaySummary, Bytes8, 114);
QV_LAYOUT(QvDaySummary, Byte1, 130);
QV_LAYOUT(QvDaySummary, Span2, 132);
QV_LAYOUT(QvDaySummary, DayTimeSeconds, 136);
QV_LAYOUT(QvDaySummary, Byte2, 140);
QV_LAYOUT(QvDaySummary, Reserved142, 142);
QV_LAYOUT(QvDaySummary, HourLevels, 144);
QV_LAYOUT(QvDaySummary, HourLevelsC, 240);
QV_LAYOUT(QvDaySummary, HourLevelsB, 336);
QV_LAYOUT(QvDaySummary, HourCounts, 432);
QV_LAYOUT(QvDaySummary, HourValues, 480);
QV_LAYOUT(QvDaySummary, HourBcd, 528);
QV_LAYOUT(QvDaySummary, DistributionPresent, 576);
QV_LAYOUT(QvDaySummary, Distribution, 577);
QV_LAYOUT(QvDaySummary, Reserved1017, 1017);

/**
 * Code 4, from item 4: a run event or another event of the measurement.
 */
typedef struct QvEvent {
  uint16_t RecordType;    /* 4 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t RecordTime;     /* time */
  uint16_t SettingFormat; /* always 0 */
  uint16_t EventDetail;   /* 0 to 15 */
  int32_t EventValue24;   /* 0 to 16777215, body bytes 10 to 12 */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint16_t EventValue16;  /* body bytes 8 and 9 */
  uint32_t RecordIndex;   /* 1 for the first event of the file, then 2, 3 and so on */
  uint16_t EventCode;     /* 0, 16, 32 to 112; 64 and 80 also stand in streams as markers */
  uint8_t Reserved26[2];  /* zero */
} QvEvent;
QV_LAYOUT_SIZE(QvEvent, 28);
QV_LAYOUT(QvEvent, RecordType, 0);
QV_LAYOUT(QvEvent, SiteNumber, 2);
QV_LAYOUT(QvEvent, RecordTime, 4);
QV_LAYOUT(QvEvent, SettingFormat, 8);
QV_LAYOUT(QvEvent, EventDetail, 10);
QV_LAYOUT(QvEvent, EventValue24, 12);
QV_LAYOUT(QvEvent, Model, 16);
QV_LAYOUT(QvEvent, EventValue16, 18);
QV_LAYOUT(QvEvent, RecordIndex, 20);
QV_LAYOUT(QvEvent, EventCode, 24);
QV_LAYOUT(QvEvent, Reserved26, 26);

/**
 * Code 5, from item 5: one level with its time and a status byte.
 */
typedef struct QvLevelMark {
  uint16_t RecordType;    /* 5 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t RecordTime;     /* time */
  uint16_t SettingFormat; /* always 0 */
  uint8_t Reserved10[2];  /* zero */
  float LevelOffset;      /* dB: the offset that was added to Level */
  float Level;            /* level */
  uint16_t StatusBit5;    /* bit 0x20 of the status byte: 0 or 32 */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint32_t RecordIndex;   /* 1 for the first level mark of the file, then 2, 3 and so on */
  uint16_t StatusCode;    /* bits 0x87 of the status byte, 128 at most */
  uint8_t Reserved30[2];  /* zero */
} QvLevelMark;
QV_LAYOUT_SIZE(QvLevelMark, 32);
QV_LAYOUT(QvLevelMark, RecordType, 0);
QV_LAYOUT(QvLevelMark, SiteNumber, 2);
QV_LAYOUT(QvLevelMark, RecordTime, 4);
QV_LAYOUT(QvLevelMark, SettingFormat, 8);
QV_LAYOUT(QvLevelMark, Reserved10, 10);
QV_LAYOUT(QvLevelMark, LevelOffset, 12);
QV_LAYOUT(QvLevelMark, Level, 16);
QV_LAYOUT(QvLevelMark, StatusBit5, 20);
QV_LAYOUT(QvLevelMark, Model, 22);
QV_LAYOUT(QvLevelMark, RecordIndex, 24);
QV_LAYOUT(QvLevelMark, StatusCode, 28);
QV_LAYOUT(QvLevelMark, Reserved30, 30);

/**
 * Code 7, from a 'Q' item: the settings of the instrument, by register.
 *
 * Registers that the file did not give are zero, texts empty. What a register stands for is the
 * instrument's own where no name tells it. Q161 to Q165 are texts of up to 8 characters on model
 * 442 and stand in the fields named ...Text there; on other models they stand in the first fields
 * of the number.
 */
typedef struct QvSettings {
  uint16_t RecordType;    /* 7 */
  uint16_t SiteNumber;    /* register Q157, the site number; 0 without it */
  int32_t BlockTime;      /* time: of the block; 0 without register Q7 */
  uint16_t SettingFormat; /* always 0 */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint8_t Reserved12[10]; /* zero */
  char Title2[32];        /* text: register Q2 */
  char Title3[32];        /* text: register Q3 */
  char SettingQ4[32];     /* text: register Q4 */
  char Title1[32];        /* text: register Q5 */
  char SettingQ6[10];     /* text: register Q6, time of day */
  char SettingQ7[12];     /* text: register Q7, date */
  int32_t SettingQ8;      /* register Q8; day of the week, 0 for Sunday */
  uint16_t SettingQ9;     /* register Q9 */
  uint16_t SettingQ10;    /* register Q10 */
  uint16_t SettingQ11;    /* register Q11 */
  uint16_t SettingQ12;    /* register Q12 */
  uint16_t SettingQ13;    /* register Q13 */
  uint16_t SettingQ14;    /* register Q14 */
  uint16_t SettingQ15;    /* register Q15 */
  uint16_t SettingQ16;    /* register Q16 */
  uint16_t SettingQ17;    /* register Q17 */
  uint16_t SettingQ18;    /* register Q18 */
  uint16_t SettingQ19;    /* register Q19 */
  uint16_t SettingQ20;    /* register Q20 */
  uint16_t SettingQ21;    /* register Q21 */
  char SettingQ22[10];    /* text: register Q22 */
  char SettingQ23[10];    /* text: register Q23 */
  char SettingQ24[10];    /* text: register Q24 */
  char SettingQ25[10];    /* text: register Q25 */
  char SettingQ26[10];    /* text: register Q26 */
  char SettingQ27[10];    /* text: register Q27 */
  char SettingQ28[10];    /* text: register Q28 */
  uint16_t SettingQ29;    /* register Q29 */
  uint16_t SettingQ30;    /* register Q30 */
  uint16_t SettingQ31;    /* register Q31 */
  uint16_t SettingQ32;    /* register Q32 */
  uint16_t SettingQ33;    /* register Q33 */
  uint16_t SettingQ34;    /* register Q34 */
  float SettingQ35;       /* register Q35 */
  char SettingQ36[10];    /* text: register Q36 */
  uint16_t SettingQ37;    /* register Q37 */
  char SettingQ38[6];     /* text: register Q38 */
  uint16_t SettingQ39;    /* register Q39 */
  uint16_t SettingQ40;    /* register Q40 */
  uint16_t SettingQ41;    /* register Q41 */
  uint16_t SettingQ42;    /* register Q42 */
  uint16_t SettingQ43;    /* register Q43 */
  float SettingQ44;       /* register Q44 */
  uint16_t SettingQ45;    /* register Q45 */
  uint16_t SettingQ46;    /* register Q46 */
  uint16_t SettingQ47;    /* register Q47 */
  uint16_t SettingQ48;    /* register Q48 */
  uint16_t SettingQ49;    /* register Q49 */
  uint16_t SettingQ50;    /* register Q50 */
  uint16_t SettingQ51;    /* register Q51 */
  uint16_t SettingQ52;    /* register Q52 */
  uint16_t SettingQ53;    /* register Q53 */
  uint16_t SettingQ54;    /* register Q54 */
  uint16_t SettingQ55;    /* register Q55 */
  uint16_t SettingQ56;    /* register Q56 */
  uint16_t SettingQ57;    /* register Q57 */
  uint16_t SettingQ58;    /* register Q58 */
  uint16_t SettingQ59;    /* register Q59 */
  uint16_t SettingQ60;    /* register Q60 */
  float SettingQ61;       /* dB: register Q61, the threshold level */
  uint16_t SettingQ62;    /* dB: register Q62, the limit level */
  uint16_t SettingQ63;    /* register Q63 */
  uint16_t SettingQ64;    /* register Q64 */
  uint16_t SettingQ65;    /* register Q65 */
  uint16_t SettingQ66;    /* register Q66 */
  uint16_t SettingQ67;    /* register Q67 */
  uint16_t SettingQ68;    /* register Q68 */
  uint16_t SettingQ69;    /* register Q69; 1: samples in intervals */
  uint16_t
      SettingQ70; /* register Q70; 1/32 s: spacing of samples in intervals, as a whole number */
  uint16_t SettingQ71;    /* register Q71; 1: auxiliary channels in intervals */
  uint16_t SettingQ72;    /* register Q72 */
  uint16_t SettingQ73;    /* register Q73 */
  uint16_t SettingQ74;    /* register Q74 */
  char SettingQ75[6];     /* text: register Q75 */
  uint16_t SettingQ76;    /* register Q76 */
  uint16_t SettingQ77;    /* register Q77; 1: percentile levels in summaries */
  uint16_t SettingQ78;    /* register Q78; 1: auxiliary channels in summaries */
  uint16_t SettingQ79;    /* register Q79 */
  uint16_t SettingQ80;    /* register Q80 */
  uint16_t SettingQ81;    /* register Q81; nonzero: one-byte levels in streams */
  uint16_t SettingQ82;    /* register Q82, kind of the second level in streams; 0: none */
  uint16_t SettingQ83;    /* register Q83, sample period of streams before Q84 scales it */
  uint16_t SettingQ84;    /* register Q84, scale of Q83; 0: 1/32 s, 1: 1 s, 2: 10 s, 3: 60 s */
  uint16_t SettingQ87;    /* register Q87 */
  uint16_t SettingQ88;    /* register Q88 */
  uint16_t SettingQ118;   /* register Q118; 0 at firmware 0.9 or below */
  uint16_t SettingQ119;   /* register Q119; 0 at firmware 0.9 or below */
  uint16_t SettingQ120;   /* register Q120; 0 at firmware 0.9 or below */
  char SettingQ121[10];   /* text: register Q121, name of the first auxiliary channel */
  char SettingQ129[10];   /* text: register Q129, name of the second auxiliary channel */
  char SettingQ137[10];   /* text: register Q137, name of the third auxiliary channel */
  uint8_t Reserved446[2]; /* zero */
  float SettingQ122;      /* register Q122, low end of the first auxiliary channel */
  float SettingQ130;      /* register Q130, low end of the second auxiliary channel */
  float SettingQ138;      /* register Q138, low end of the third auxiliary channel */
  float SettingQ123;      /* register Q123, high end of the first auxiliary channel */
  float SettingQ131;      /* register Q131, high end of the second auxiliary channel */
  float SettingQ139;      /* register Q139, high end of the third auxiliary channel */
  char SettingQ124[6];    /* text: register Q124, units of the first auxiliary channel */
  char SettingQ132[6];    /* text: register Q132, units of the second auxiliary channel */
  char SettingQ140[6];    /* text: register Q140, units of the third auxiliary channel */
  uint8_t Reserved490[2]; /* zero */
  float SettingQ125;      /* register Q125 */
  float SettingQ133;      /* register Q133 */
  float SettingQ141;      /* register Q141 */
  uint16_t SettingQ126;   /* register Q126 */
  uint16_t SettingQ134;   /* register Q134 */
  uint16_t SettingQ142;   /* register Q142 */
  uint16_t SettingQ127;   /* register Q127 */
  uint16_t SettingQ135;   /* register Q135 */
  uint16_t SettingQ143;   /* register Q143 */
  uint16_t SettingQ128;   /* register Q128 */
  uint16_t SettingQ136;   /* register Q136 */
  uint16_t SettingQ144;   /* register Q144 */
  uint16_t
      SettingQ145; /* register Q145; 1: two spans and a byte in intervals, summaries and days */
  uint16_t SettingQ146;    /* register Q146 */
  uint8_t Reserved526[2];  /* zero */
  float SettingQ147;       /* register Q147 */
  float SettingQ148;       /* register Q148 */
  float SettingQ149;       /* register Q149 */
  uint16_t SettingQ150;    /* register Q150 */
  uint16_t SettingQ153;    /* register Q153 */
  uint16_t SettingQ154;    /* register Q154 */
  uint16_t SettingQ155;    /* register Q155 */
  char SettingQ156[32];    /* text: register Q156 */
  uint16_t SettingQ157;    /* register Q157, the site number */
  char SettingQ158[32];    /* text: register Q158 */
  uint16_t SettingQ159;    /* register Q159 */
  float SettingQ160;       /* register Q160 */
  char SettingQ161[6];     /* text: register Q161; not on model 442 */
  uint16_t SettingQ162;    /* register Q162; not on model 442 */
  uint16_t SettingQ163;    /* register Q163; not on model 442 */
  uint16_t SettingQ164;    /* register Q164; not on model 442 */
  uint16_t SettingQ165;    /* register Q165; not on model 442 */
  uint16_t SettingQ206;    /* register Q206; 0 at firmware 0.9 or below */
  uint16_t SettingQ209;    /* register Q209 */
  uint16_t SettingQ210;    /* register Q210 */
  char SettingQ161Text[9]; /* text: register Q161 on model 442 */
  char SettingQ162Text[9]; /* text: register Q162 on model 442 */
  char SettingQ163Text[9]; /* text: register Q163 on model 442 */
  char SettingQ164Text[9]; /* text: register Q164 on model 442 */
  char SettingQ165Text[9]; /* text: register Q165 on model 442 */
  uint8_t Reserved685[3];  /* zero */
} QvSettings;
QV_LAYOUT_SIZE(QvSettings, 688);
QV_LAYOUT(QvSettings, RecordType, 0);
QV_LAYOUT(QvSettings, SiteNumber, 2);
QV_LAYOUT(QvSettings, BlockTime, 4);
QV_LAYOUT(QvSettings, SettingFormat, 8);
QV_LAYOUT(QvSettings, Model, 10);
QV_LAYOUT(QvSettings, Reserved12, 12);
QV_LAYOUT(QvSettings, Title2, 22);
QV_LAYOUT(QvSettings, Title3, 54);
QV_LAYOUT(QvSettings, SettingQ4, 86);
QV_LAYOUT(QvSettings, Title1, 118);
QV_LAYOUT(QvSettings, SettingQ6, 150);
QV_LAYOUT(QvSettings, SettingQ7, 160);
QV_LAYOUT(QvSettings, SettingQ8, 172);
QV_LAYOUT(QvSettings, SettingQ9, 176);
QV_LAYOUT(QvSettings, SettingQ10, 178);
QV_LAYOUT(QvSettings, SettingQ11, 180);
QV_LAYOUT(QvSettings, SettingQ12, 182);
QV_LAYOUT(QvSettings, SettingQ13, 184);
QV_LAYOUT(QvSettings, SettingQ14, 186);
QV_LAYOUT(QvSettings, SettingQ15, 188);
QV_LAYOUT(QvSettings, SettingQ16, 190);
QV_LAYOUT(QvSettings, SettingQ17, 192);
QV_LAYOUT(QvSettings, SettingQ18, 194);
QV_LAYOUT(QvSettings, SettingQ19, 196);
QV_LAYOUT(QvSettings, SettingQ20, 198);
QV_LAYOUT(QvSettings, SettingQ21, 200);
QV_LAYOUT(QvSettings, SettingQ22, 202);
QV_LAYOUT(QvSettings, SettingQ23, 212);
QV_LAYOUT(QvSettings, SettingQ24, 222);
QV_LAYOUT(QvSettings, SettingQ25, 232);
QV_LAYOUT(QvSettings, SettingQ26, 242);
QV_LAYOUT(QvSettings, SettingQ27, 252);
QV_LAYOUT(QvSettings, SettingQ28, 262);
QV_LAYOUT(QvSettings, SettingQ29, 272);
QV_LAYOUT(QvSettings, SettingQ30, 274);
QV_LAYOUT(QvSettings, SettingQ31, 276);
QV_LAYOUT(QvSettings, SettingQ32, 278);
QV_LAYOUT(QvSettings, SettingQ33, 280);
QV_LAYOUT(QvSettings, SettingQ34, 282);
QV_LAYOUT(QvSettings, SettingQ35, 284);
QV_LAYOUT(QvSettings, SettingQ36, 288);
QV_LAYOUT(QvSettings, SettingQ37, 298);
QV_LAYOUT(QvSettings, SettingQ38, 300);
QV_LAYOUT(QvSettings, SettingQ39, 306);
QV_LAYOUT(QvSettings, SettingQ40, 308);
QV_LAYOUT(QvSettings, SettingQ41, 310);
QV_LAYOUT(QvSettings, SettingQ42, 312);
QV_LAYOUT(QvSettings, SettingQ43, 314);
QV_LAYOUT(QvSettings, SettingQ44, 316);
QV_LAYOUT(QvSettings, SettingQ45, 320);
QV_LAYOUT(QvSettings, SettingQ46, 322);
QV_LAYOUT(QvSettings, SettingQ47, 324);
QV_LAYOUT(QvSettings, SettingQ48, 326);
QV_LAYOUT(QvSettings, SettingQ49, 328);
QV_LAYOUT(QvSettings, SettingQ50, 330);
QV_LAYOUT(QvSettings, SettingQ51, 332);
QV_LAYOUT(QvSettings, SettingQ52, 334);
QV_LAYOUT(QvSettings, SettingQ53, 336);
QV_LAYOUT(QvSettings, SettingQ54, 338);
QV_LAYOUT(QvSettings, SettingQ55, 340);
QV_LAYOUT(QvSettings, SettingQ56, 342);
QV_LAYOUT(QvSettings, SettingQ57, 344);
QV_LAYOUT(QvSettings, SettingQ58, 346);
QV_LAYOUT(QvSettings, SettingQ59, 348);
QV_LAYOUT(QvSettings, SettingQ60, 350);
QV_LAYOUT(QvSettings, SettingQ61, 352);
QV_LAYOUT(QvSettings, SettingQ62, 356);
QV_LAYOUT(QvSettings, SettingQ63, 358);
QV_LAYOUT(QvSettings, SettingQ64, 360);
QV_LAYOUT(QvSettings, SettingQ65, 362);
QV_LAYOUT(QvSettings, SettingQ66, 364);
QV_LAYOUT(QvSettings, SettingQ67, 366);
QV_LAYOUT(QvSettings, SettingQ68, 368);
QV_LAYOUT(QvSettings, SettingQ69, 370);
QV_LAYOUT(QvSettings, SettingQ70, 372);
QV_LAYOUT(QvSettings, SettingQ71, 374);
QV_LAYOUT(QvSettings, SettingQ72, 376);
QV_LAYOUT(QvSettings, SettingQ73, 378);
QV_LAYOUT(QvSettings, SettingQ74, 380);
QV_LAYOUT(QvSettings, SettingQ75, 382);
QV_LAYOUT(QvSettings, SettingQ76, 388);
QV_LAYOUT(QvSettings, SettingQ77, 390);
QV_LAYOUT(QvSettings, SettingQ78, 392);
QV_LAYOUT(QvSettings, SettingQ79, 394);
QV_LAYOUT(QvSettings, SettingQ80, 396);
QV_LAYOUT(QvSettings, SettingQ81, 398);
QV_LAYOUT(QvSettings, SettingQ82, 400);
QV_LAYOUT(QvSettings, SettingQ83, 402);
QV_LAYOUT(QvSettings, SettingQ84, 404);
QV_LAYOUT(QvSettings, SettingQ87, 406);
QV_LAYOUT(QvSettings, SettingQ88, 408);
QV_LAYOUT(QvSettings, SettingQ118, 410);
QV_LAYOUT(QvSettings, SettingQ119, 412);
QV_LAYOUT(QvSettings, SettingQ120, 414);
QV_LAYOUT(QvSettings, SettingQ121, 416);
QV_LAYOUT(QvSettings, SettingQ129, 426);
QV_LAYOUT(QvSettings, SettingQ137, 436);
QV_LAYOUT(QvSettings, Reserved446, 446);
QV_LAYOUT(QvSettings, SettingQ122, 448);
QV_LAYOUT(QvSettings, SettingQ130, 452);
QV_LAYOUT(QvSettings, SettingQ138, 456);
QV_LAYOUT(QvSettings, SettingQ123, 460);
QV_LAYOUT(QvSettings, SettingQ131, 464);
QV_LAYOUT(QvSettings, SettingQ139, 468);
QV_LAYOUT(QvSettings, SettingQ124, 472);
QV_LAYOUT(QvSettings, SettingQ132, 478);
QV_LAYOUT(QvSettings, SettingQ140, 484);
QV_LAYOUT(QvSettings, Reserved490, 490);
QV_LAYOUT(QvSettings, SettingQ125, 492);
QV_LAYOUT(QvSettings, SettingQ133, 496);
QV_LAYOUT(QvSettings, SettingQ141, 500);
QV_LAYOUT(QvSettings, SettingQ126, 504);
QV_LAYOUT(QvSettings, SettingQ134, 506);
QV_LAYOUT(QvSettings, SettingQ142, 508);
QV_LAYOUT(QvSettings, SettingQ127, 510);
QV_LAYOUT(QvSettings, SettingQ135, 512);
QV_LAYOUT(QvSettings, SettingQ143, 514);
QV_LAYOUT(QvSettings, SettingQ128, 516);
QV_LAYOUT(QvSettings, SettingQ136, 518);
QV_LAYOUT(QvSettings, SettingQ144, 520);
QV_LAYOUT(QvSettings, SettingQ145, 522);
QV_LAYOUT(QvSettings, SettingQ146, 524);
QV_LAYOUT(QvSettings, Reserved526, 526);
QV_LAYOUT(QvSettings, SettingQ147, 528);
QV_LAYOUT(QvSettings, SettingQ148, 532);
QV_LAYOUT(QvSettings, SettingQ149, 536);
QV_LAYOUT(QvSettings, SettingQ150, 540);
QV_LAYOUT(QvSettings, SettingQ153, 542);
QV_LAYOUT(QvSettings, SettingQ154, 544);
QV_LAYOUT(QvSettings, SettingQ155, 546);
QV_LAYOUT(QvSettings, SettingQ156, 548);
QV_LAYOUT(QvSettings, SettingQ157, 580);
QV_LAYOUT(QvSettings, SettingQ158, 582);
QV_LAYOUT(QvSettings, SettingQ159, 614);
QV_LAYOUT(QvSettings, SettingQ160, 616);
QV_LAYOUT(QvSettings, SettingQ161, 620);
QV_LAYOUT(QvSettings, SettingQ162, 626);
QV_LAYOUT(QvSettings, SettingQ163, 628);
QV_LAYOUT(QvSettings, SettingQ164, 630);
QV_LAYOUT(QvSettings, SettingQ165, 632);
QV_LAYOUT(QvSettings, SettingQ206, 634);
QV_LAYOUT(QvSettings, SettingQ209, 636);
QV_LAYOUT(QvSettings, SettingQ210, 638);
QV_LAYOUT(QvSettings, SettingQ161Text, 640);
QV_LAYOUT(QvSettings, SettingQ162Text, 649);
QV_LAYOUT(QvSettings, SettingQ163Text, 658);
QV_LAYOUT(QvSettings, SettingQ164Text, 667);
QV_LAYOUT(QvSettings, SettingQ165Text, 676);
QV_LAYOUT(QvSettings, Reserved685, 685);

/**
 * Code 8, from an 'R' item of general models: the stored results of a run, by register, with
 * settings kept from the blocks before it. Registers that the file did not give are zero, texts
 * empty.
 *
 * ResultFlags: 0x0002 register Q209 was not 0; 0x0004 auxiliary channels in intervals or summaries;
 * 0x0008 spans in intervals, summaries and days; 0x0010 the second auxiliary channel is enabled;
 * 0x0040 register Q120 and 0x0080 register Q118 switched on the hourly counters; 0x0200 one of R38
 * to R43 stands in the block.
 */
typedef struct QvResults {
  uint16_t RecordType;    /* 8 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t StopTime;       /* time: of the last stop, register R6 */
  uint16_t SettingFormat; /* always 0 */
  uint16_t ResultFlags;   /* bits, see above */
  float SettingR72;       /* register R72 */
  float SettingR77;       /* register R77 */
  float SettingR82;       /* register R82 */
  int32_t SettingR75;     /* register R75 */
  int32_t SettingR80;     /* register R80 */
  int32_t SettingR85;     /* register R85 */
  float SettingR73;       /* register R73 */
  float SettingR78;       /* register R78 */
  float SettingR83;       /* register R83 */
  float SettingR74;       /* register R74 */
  float SettingR79;       /* register R79 */
  float SettingR84;       /* register R84 */
  char AuxName0[10];      /* text: name of auxiliary channel 0 */
  char AuxName1[10];      /* text: name of auxiliary channel 1 */
  char AuxName2[10];      /* text: name of auxiliary channel 2 */
  char AuxUnits0[6];      /* text: units of auxiliary channel 0 */
  char AuxUnits1[6];      /* text: units of auxiliary channel 1 */
  char AuxUnits2[6];      /* text: units of auxiliary channel 2 */
  float SettingR70;       /* register R70 */
  float SettingR156;      /* s: register R156 */
  char SettingR86[8];     /* text: register R86 */
  char SettingR87[4];     /* text: register R87 */
  int32_t SettingR104;    /* time: register R104 */
  int32_t SettingR105;    /* time: register R105 */
  float SettingR107;      /* register R107 */
  float SettingR106;      /* register R106 */
  float SettingR65;       /* register R65 */
  uint16_t SettingQ50;    /* register Q50, or kept from a setup */
  uint16_t SettingQ47;    /* register Q47, or kept from a setup */
  float SettingR44;       /* register R44 */
  float SettingR45;       /* register R45 */
  uint8_t SettingR98[8];  /* register R98 */
  uint8_t Reserved168[4]; /* zero */
  float SettingR68;       /* register R68 */
  float SettingR69;       /* s: register R69 */
  float SettingR90;       /* register R90 */
  int32_t SettingR91;     /* register R91 */
  float SettingR60[24];   /* register R60 */
  int32_t SettingR179;    /* register R179 */
  char SettingR180[6];    /* text: register R180 */
  uint16_t SettingQ54;    /* register Q54 */
  float SettingR48;       /* the last number before register R48, not its own */
  int32_t SettingR53;     /* 1 when the line holds an n: register R53 */
  float SettingR49;       /* register R49 */
  float SettingR51;       /* the last number before register R51, not its own */
  uint16_t SettingQ53;    /* register Q53 */
  uint8_t Reserved314[2]; /* zero */
  float SettingR50;       /* the last number before register R50, not its own */
  char SettingR52[8];     /* text: register R52 */
  float SettingR62;       /* register R62 */
  float SettingR57;       /* register R57 */
  float SettingR38;       /* register R38 */
  float SettingR39;       /* register R39 */
  float SettingR40;       /* register R40 */
  float SettingR41;       /* register R41 */
  float SettingR42;       /* register R42 */
  float SettingR43;       /* register R43 */
  float SettingR19;       /* register R19 */
  float SettingR21;       /* register R21 */
  int32_t SettingR20;     /* time: register R20 */
  int32_t SettingR22;     /* time: register R22 */
  float SettingR15;       /* register R15 */
  float SettingR17;       /* register R17 */
  int32_t SettingR16;     /* time: register R16 */
  int32_t SettingR18;     /* time: register R18 */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint8_t Reserved394[2]; /* zero */
  float
      KeptSixValues[6]; /* registers Q55 to Q60, or kept from a setup; zero when there were none */
  int32_t SettingR35;   /* register R35 */
  int32_t SettingR36;   /* register R36 */
  float SettingR37;     /* s: register R37 */
  float SettingR23;     /* register R23 */
  float SettingR25;     /* register R25 */
  int32_t SettingR33;   /* register R33 */
  int32_t SettingR24;   /* time: register R24 */
  int32_t SettingR26;   /* time: register R26 */
  char SettingR151[4];  /* text: register R151 */
  float SettingR46;     /* register R46 */
  float SettingR47;     /* register R47 */
  int32_t SettingR170;  /* register R170 */
  int32_t SettingR171;  /* register R171 */
  int32_t SettingR97;   /* register R97 */
  int32_t SettingR96;   /* register R96 */
  int32_t SettingR181;  /* register R181 */
  int32_t SettingR93;   /* register R93 */
  int32_t SettingR95;   /* register R95 */
  int32_t SettingR94;   /* register R94 */
  int32_t SettingR161;  /* register R161 */
  int32_t SettingR92;   /* register R92 */
  int32_t SettingR31;   /* register R31 */
  int32_t SettingR32;   /* register R32 */
  int32_t SettingR150;  /* register R150 */
  float SettingR5;      /* s: register R5 */
  float SettingR7;      /* s: register R7 */
  float SettingR13;     /* register R13 */
  float SettingR14;     /* register R14 */
  char SettingR89[8];   /* text: register R89 */
  float SettingR162;    /* register R162 */
  int32_t SettingR6;    /* time: register R6 */
  int32_t SettingR8;    /* time: register R8 */
  char SettingR3[51];   /* text: register R3 */
  uint8_t Reserved603[1]; /* zero */
  float SettingR163;      /* register R163 */
  float SettingR164;      /* register R164 */
  float SettingR88;       /* register R88 */
  uint16_t SetupKeptA;    /* register Q49, or kept from a setup */
  uint16_t SetupKeptB;    /* register Q46, or kept from a setup */
  int32_t SettingR158;    /* register R158 */
  float SettingR9;        /* register R9 */
  float SettingR11;       /* register R11 */
  char SettingR10[8];     /* text: register R10 */
  char SettingR12[8];     /* text: register R12 */
  float SettingR27;       /* register R27 */
  float SettingR29;       /* register R29 */
  int32_t SettingR34;     /* register R34 */
  int32_t SettingR28;     /* time: register R28 */
  int32_t SettingR30;     /* time: register R30 */
  float SettingR118;      /* register R118 */
  int32_t SettingR124[8]; /* register R124 */
  float SettingR119;      /* register R119 */
  uint16_t SettingR120;   /* point of the compass, 0 for N, clockwise to 15: register R120 */
  uint8_t Reserved710[2]; /* zero */
  int32_t SettingR121;    /* time: register R121 */
  uint16_t ModeFormFlag;  /* register Q146, or 1 or 0 by the form of the setup */
  uint8_t Reserved718[2]; /* zero */
  float SettingR123;      /* register R123 */
  float SettingQ147;      /* register Q147 */
} QvResults;
QV_LAYOUT_SIZE(QvResults, 728);
QV_LAYOUT(QvResults, RecordType, 0);
QV_LAYOUT(QvResults, SiteNumber, 2);
QV_LAYOUT(QvResults, StopTime, 4);
QV_LAYOUT(QvResults, SettingFormat, 8);
QV_LAYOUT(QvResults, ResultFlags, 10);
QV_LAYOUT(QvResults, SettingR72, 12);
QV_LAYOUT(QvResults, SettingR77, 16);
QV_LAYOUT(QvResults, SettingR82, 20);
QV_LAYOUT(QvResults, SettingR75, 24);
QV_LAYOUT(QvResults, SettingR80, 28);
QV_LAYOUT(QvResults, SettingR85, 32);
QV_LAYOUT(QvResults, SettingR73, 36);
QV_LAYOUT(QvResults, SettingR78, 40);
QV_LAYOUT(QvResults, SettingR83, 44);
QV_LAYOUT(QvResults, SettingR74, 48);
QV_LAYOUT(QvResults, SettingR79, 52);
QV_LAYOUT(QvResults, SettingR84, 56);
QV_LAYOUT(QvResults, AuxName0, 60);
QV_LAYOUT(QvResults, AuxName1, 70);
QV_LAYOUT(QvResults, AuxName2, 80);
QV_LAYOUT(QvResults, AuxUnits0, 90);
QV_LAYOUT(QvResults, AuxUnits1, 96);
QV_LAYOUT(QvResults, AuxUnits2, 102);
QV_LAYOUT(QvResults, SettingR70, 108);
QV_LAYOUT(QvResults, SettingR156, 112);
QV_LAYOUT(QvResults, SettingR86, 116);
QV_LAYOUT(QvResults, SettingR87, 124);
QV_LAYOUT(QvResults, SettingR104, 128);
QV_LAYOUT(QvResults, SettingR105, 132);
QV_LAYOUT(QvResults, SettingR107, 136);
QV_LAYOUT(QvResults, SettingR106, 140);
QV_LAYOUT(QvResults, SettingR65, 144);
QV_LAYOUT(QvResults, SettingQ50, 148);
QV_LAYOUT(QvResults, SettingQ47, 150);
QV_LAYOUT(QvResults, SettingR44, 152);
QV_LAYOUT(QvResults, SettingR45, 156);
QV_LAYOUT(QvResults, SettingR98, 160);
QV_LAYOUT(QvResults, Reserved168, 168);
QV_LAYOUT(QvResults, SettingR68, 172);
QV_LAYOUT(QvResults, SettingR69, 176);
QV_LAYOUT(QvResults, SettingR90, 180);
QV_LAYOUT(QvResults, SettingR91, 184);
QV_LAYOUT(QvResults, SettingR60, 188);
QV_LAYOUT(QvResults, SettingR179, 284);
QV_LAYOUT(QvResults, SettingR180, 288);
QV_LAYOUT(QvResults, SettingQ54, 294);
QV_LAYOUT(QvResults, SettingR48, 296);
QV_LAYOUT(QvResults, SettingR53, 300);
QV_LAYOUT(QvResults, SettingR49, 304);
QV_LAYOUT(QvResults, SettingR51, 308);
QV_LAYOUT(QvResults, SettingQ53, 312);
QV_LAYOUT(QvResults, Reserved314, 314);
QV_LAYOUT(QvResults, SettingR50, 316);
QV_LAYOUT(QvResults, SettingR52, 320);
QV_LAYOUT(QvResults, SettingR62, 328);
QV_LAYOUT(QvResults, SettingR57, 332);
QV_LAYOUT(QvResults, SettingR38, 336);
QV_LAYOUT(QvResults, SettingR39, 340);
QV_LAYOUT(QvResults, SettingR40, 344);
QV_LAYOUT(QvResults, SettingR41, 348);
QV_LAYOUT(QvResults, SettingR42, 352);
QV_LAYOUT(QvResults, SettingR43, 356);
QV_LAYOUT(QvResults, SettingR19, 360);
QV_LAYOUT(QvResults, SettingR21, 364);
QV_LAYOUT(QvResults, SettingR20, 368);
QV_LAYOUT(QvResults, SettingR22, 372);
QV_LAYOUT(QvResults, SettingR15, 376);
QV_LAYOUT(QvResults, SettingR17, 380);
QV_LAYOUT(QvResults, SettingR16, 384);
QV_LAYOUT(QvResults, SettingR18, 388);
QV_LAYOUT(QvResults, Model, 392);
QV_LAYOUT(QvResults, Reserved394, 394);
QV_LAYOUT(QvResults, KeptSixValues, 396);
QV_LAYOUT(QvResults, SettingR35, 420);
QV_LAYOUT(QvResults, SettingR36, 424);
QV_LAYOUT(QvResults, SettingR37, 428);
QV_LAYOUT(QvResults, SettingR23, 432);
QV_LAYOUT(QvResults, SettingR25, 436);
QV_LAYOUT(QvResults, SettingR33, 440);
QV_LAYOUT(QvResults, SettingR24, 444);
QV_LAYOUT(QvResults, SettingR26, 448);
QV_LAYOUT(QvResults, SettingR151, 452);
QV_LAYOUT(QvResults, SettingR46, 456);
QV_LAYOUT(QvResults, SettingR47, 460);
QV_LAYOUT(QvResults, SettingR170, 464);
QV_LAYOUT(QvResults, SettingR171, 468);
QV_LAYOUT(QvResults, SettingR97, 472);
QV_LAYOUT(QvResults, SettingR96, 476);
QV_LAYOUT(QvResults, SettingR181, 480);
QV_LAYOUT(QvResults, SettingR93, 484);
QV_LAYOUT(QvResults, SettingR95, 488);
QV_LAYOUT(QvResults, SettingR94, 492);
QV_LAYOUT(QvResults, SettingR161, 496);
QV_LAYOUT(QvResults, SettingR92, 500);
QV_LAYOUT(QvResults, SettingR31, 504);
QV_LAYOUT(QvResults, SettingR32, 508);
QV_LAYOUT(QvResults, SettingR150, 512);
QV_LAYOUT(QvResults, SettingR5, 516);
QV_LAYOUT(QvResults, SettingR7, 520);
QV_LAYOUT(QvResults, SettingR13, 524);
QV_LAYOUT(QvResults, SettingR14, 528);
QV_LAYOUT(QvResults, SettingR89, 532);
QV_LAYOUT(QvResults, SettingR162, 540);
QV_LAYOUT(QvResults, SettingR6, 544);
QV_LAYOUT(QvResults, SettingR8, 548);
QV_LAYOUT(QvResults, SettingR3, 552);
QV_LAYOUT(QvResults, Reserved603, 603);
QV_LAYOUT(QvResults, SettingR163, 604);
QV_LAYOUT(QvResults, SettingR164, 608);
QV_LAYOUT(QvResults, SettingR88, 612);
QV_LAYOUT(QvResults, SetupKeptA, 616);
QV_LAYOUT(QvResults, SetupKeptB, 618);
QV_LAYOUT(QvResults, SettingR158, 620);
QV_LAYOUT(QvResults, SettingR9, 624);
QV_LAYOUT(QvResults, SettingR11, 628);
QV_LAYOUT(QvResults, SettingR10, 632);
QV_LAYOUT(QvResults, SettingR12, 640);
QV_LAYOUT(QvResults, SettingR27, 648);
QV_LAYOUT(QvResults, SettingR29, 652);
QV_LAYOUT(QvResults, SettingR34, 656);
QV_LAYOUT(QvResults, SettingR28, 660);
QV_LAYOUT(QvResults, SettingR30, 664);
QV_LAYOUT(QvResults, SettingR118, 668);
QV_LAYOUT(QvResults, SettingR124, 672);
QV_LAYOUT(QvResults, SettingR119, 704);
QV_LAYOUT(QvResults, SettingR120, 708);
QV_LAYOUT(QvResults, Reserved710, 710);
QV_LAYOUT(QvResults, SettingR121, 712);
QV_LAYOUT(QvResults, ModeFormFlag, 716);
QV_LAYOUT(QvResults, Reserved718, 718);
QV_LAYOUT(QvResults, SettingR123, 720);
QV_LAYOUT(QvResults, SettingQ147, 724);

/**
 * Code 9, from item 8, and from item 7 of general models: up to three blocks of raw bytes.
 *
 * The largest record of the library. It is not cleared: bytes that a block does not fill keep what
 * the host's buffer held. BlockFlags: 64 Block1 present (5120 bytes on models 431 and 442, else the
 * first 4096); 32 Block2 present; 16 Block3 present.
 */
typedef struct QvBlockImage {
  uint16_t RecordType;    /* 9 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t RecordTime;     /* time: of the last stop */
  uint16_t SettingFormat; /* always 0 */
  uint16_t BlockFlags;    /* bits, see above */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint8_t Unwritten14[2]; /* not written */
  float LevelBase;        /* dB: level base of model 442, else the level offset */
  uint8_t Block1[5120];
  uint8_t Block2[512];
  uint8_t Block3[512];
} QvBlockImage;
QV_LAYOUT_SIZE(QvBlockImage, 6164);
QV_LAYOUT(QvBlockImage, RecordType, 0);
QV_LAYOUT(QvBlockImage, SiteNumber, 2);
QV_LAYOUT(QvBlockImage, RecordTime, 4);
QV_LAYOUT(QvBlockImage, SettingFormat, 8);
QV_LAYOUT(QvBlockImage, BlockFlags, 10);
QV_LAYOUT(QvBlockImage, Model, 12);
QV_LAYOUT(QvBlockImage, Unwritten14, 14);
QV_LAYOUT(QvBlockImage, LevelBase, 16);
QV_LAYOUT(QvBlockImage, Block1, 20);
QV_LAYOUT(QvBlockImage, Block2, 5140);
QV_LAYOUT(QvBlockImage, Block3, 5652);

/**
 * Code 10, from item 131: the bands of a level mark.
 */
typedef struct QvLevelMarkBands {
  uint16_t RecordType; /* 10 */
  uint16_t SiteNumber; /* site in force when the record was decoded */
  int32_t RecordTime;  /* time: of the record that owns the bands; the present time when that record
                          is not found */
  uint16_t SettingFormat; /* always 0 */
  uint8_t Reserved10[2];  /* zero */
  uint32_t OwnerNumber;   /* RecordIndex of the level mark */
  uint32_t RecordIndex;   /* 1 for the first of all items 129 to 132, then 2, 3 and so on */
  float Bands[34];        /* dB: band levels */
} QvLevelMarkBands;
QV_LAYOUT_SIZE(QvLevelMarkBands, 156);
QV_LAYOUT(QvLevelMarkBands, RecordType, 0);
QV_LAYOUT(QvLevelMarkBands, SiteNumber, 2);
QV_LAYOUT(QvLevelMarkBands, RecordTime, 4);
QV_LAYOUT(QvLevelMarkBands, SettingFormat, 8);
QV_LAYOUT(QvLevelMarkBands, Reserved10, 10);
QV_LAYOUT(QvLevelMarkBands, OwnerNumber, 12);
QV_LAYOUT(QvLevelMarkBands, RecordIndex, 16);
QV_LAYOUT(QvLevelMarkBands, Bands, 20);

/**
 * Code 11, from item 129: the bands of an interval.
 *
 * BandFlags 0x2000 marks the short form: it has BandsA, BandsB but for the last three entries,
 * OverallLevel, LevelPair1, Value and ShortByte. The long form (BandFlags 0) has BandsA, BandsB, BandsC
 * and OverallLevel. What a form has not is zero.
 */
typedef struct QvIntervalBands {
  uint16_t RecordType; /* 11 */
  uint16_t SiteNumber; /* site in force when the record was decoded */
  int32_t RecordTime;  /* time: start of the record that owns the bands; the present time when that
                          record is not found */
  uint16_t SettingFormat; /* always 0 */
  uint16_t BandFlags;     /* bits, see above */
  uint16_t ShortByte;     /* short form */
  uint8_t Reserved14[2];  /* zero */
  float OverallLevel;     /* dB */
  uint32_t OwnerNumber;   /* RecordIndex of the interval */
  uint32_t RecordIndex;   /* 1 for the first of all items 129 to 132, then 2, 3 and so on */
  float LevelPair1;       /* dB: short form */
  float Value;            /* short form, in steps of a half */
  float BandsA[34];       /* dB: band levels */
  float BandsB[34];       /* dB: band levels */
  float BandsC[34];       /* dB: band levels */
} QvIntervalBands;
QV_LAYOUT_SIZE(QvIntervalBands, 444);
QV_LAYOUT(QvIntervalBands, RecordType, 0);
QV_LAYOUT(QvIntervalBands, SiteNumber, 2);
QV_LAYOUT(QvIntervalBands, RecordTime, 4);
QV_LAYOUT(QvIntervalBands, SettingFormat, 8);
QV_LAYOUT(QvIntervalBands, BandFlags, 10);
QV_LAYOUT(QvIntervalBands, ShortByte, 12);
QV_LAYOUT(QvIntervalBands, Reserved14, 14);
QV_LAYOUT(QvIntervalBands, OverallLevel, 16);
QV_LAYOUT(QvIntervalBands, OwnerNumber, 20);
QV_LAYOUT(QvIntervalBands, RecordIndex, 24);
QV_LAYOUT(QvIntervalBands, LevelPair1, 28);
QV_LAYOUT(QvIntervalBands, Value, 32);
QV_LAYOUT(QvIntervalBands, BandsA, 36);
QV_LAYOUT(QvIntervalBands, BandsB, 172);
QV_LAYOUT(QvIntervalBands, BandsC, 308);

/**
 * Code 12, from item 130: the bands of a summary.
 */
typedef struct QvSummaryBands {
  uint16_t RecordType; /* 12 */
  uint16_t SiteNumber; /* site in force when the record was decoded */
  int32_t RecordTime;  /* time: of the record that owns the bands; the present time when that record
                          is not found */
  uint16_t SettingFormat; /* always 0 */
  uint8_t Reserved10[2];  /* zero */
  uint32_t OwnerNumber;   /* RecordIndex of the summary */
  uint32_t RecordIndex;   /* 1 for the first of all items 129 to 132, then 2, 3 and so on */
  float BandsA[34];       /* dB: band levels */
  float BandsB[34];       /* dB: band levels */
  float BandsC[34];       /* dB: band levels */
} QvSummaryBands;
QV_LAYOUT_SIZE(QvSummaryBands, 428);
QV_LAYOUT(QvSummaryBands, RecordType, 0);
QV_LAYOUT(QvSummaryBands, SiteNumber, 2);
QV_LAYOUT(QvSummaryBands, RecordTime, 4);
QV_LAYOUT(QvSummaryBands, SettingFormat, 8);
QV_LAYOUT(QvSummaryBands, Reserved10, 10);
QV_LAYOUT(QvSummaryBands, OwnerNumber, 12);
QV_LAYOUT(QvSummaryBands, RecordIndex, 16);
QV_LAYOUT(QvSummaryBands, BandsA, 20);
QV_LAYOUT(QvSummaryBands, BandsB, 156);
QV_LAYOUT(QvSummaryBands, BandsC, 292);

/**
 * Code 13, from item 132: one of a series of band tables within an interval.
 */
typedef struct QvIntervalBandSeries {
  uint16_t RecordType; /* 13 */
  uint16_t SiteNumber; /* site in force when the record was decoded */
  int32_t RecordTime;  /* time: start of the record that owns the bands; the present time when that
                          record is not found */
  uint16_t SettingFormat;   /* always 0 */
  uint8_t Reserved10[2];    /* zero */
  uint32_t OwnerNumber;     /* RecordIndex of the interval */
  uint16_t LastOfOwner;     /* 1 on the last table of the interval, else 0 */
  uint8_t Reserved18[6];    /* zero */
  uint32_t RecordIndex;     /* 1 for the first of all items 129 to 132, then 2, 3 and so on */
  uint16_t SequenceInOwner; /* 0 for the first table of the interval, then 1, 2 and so on */
  uint8_t Reserved30[2];    /* zero */
  float Bands[34];          /* dB: band levels */
} QvIntervalBandSeries;
QV_LAYOUT_SIZE(QvIntervalBandSeries, 168);
QV_LAYOUT(QvIntervalBandSeries, RecordType, 0);
QV_LAYOUT(QvIntervalBandSeries, SiteNumber, 2);
QV_LAYOUT(QvIntervalBandSeries, RecordTime, 4);
QV_LAYOUT(QvIntervalBandSeries, SettingFormat, 8);
QV_LAYOUT(QvIntervalBandSeries, Reserved10, 10);
QV_LAYOUT(QvIntervalBandSeries, OwnerNumber, 12);
QV_LAYOUT(QvIntervalBandSeries, LastOfOwner, 16);
QV_LAYOUT(QvIntervalBandSeries, Reserved18, 18);
QV_LAYOUT(QvIntervalBandSeries, RecordIndex, 24);
QV_LAYOUT(QvIntervalBandSeries, SequenceInOwner, 28);
QV_LAYOUT(QvIntervalBandSeries, Reserved30, 30);
QV_LAYOUT(QvIntervalBandSeries, Bands, 32);

/**
 * Code 15, delivered with QV_END_OF_DATA: what the whole file told.
 *
 * A title takes the first text that the file gives for it.
 */
typedef struct QvEnd {
  uint16_t RecordType;       /* 15 */
  uint16_t SiteNumber;       /* register Q157 of the last 'Q' item that has it */
  int32_t BlockTime;         /* time: of the last 'Q' item that has register Q7 */
  uint16_t EndRecordZero;    /* always 0 */
  uint8_t Reserved10[2];     /* zero */
  int32_t LatestRecordTime;  /* time: the latest of the records that raise it */
  char Title1[82];           /* text: first '@' line or register Q5 */
  uint16_t Model;            /* instrument model, from the last 'Q' item or register R1 */
  char FileName[256];        /* text: file name without its folder */
  char Title2[82];           /* text: second '@' line or register Q2 */
  char Title3[82];           /* text: third '@' line or register Q3 */
  int32_t EndRecordStopTime; /* time: of the last stop, register R6 */
  char SerialText[8];        /* text: serial number from the model line; without a NUL when it has 8
                                characters */
} QvEnd;
QV_LAYOUT_SIZE(QvEnd, 532);
QV_LAYOUT(QvEnd, RecordType, 0);
QV_LAYOUT(QvEnd, SiteNumber, 2);
QV_LAYOUT(QvEnd, BlockTime, 4);
QV_LAYOUT(QvEnd, EndRecordZero, 8);
QV_LAYOUT(QvEnd, Reserved10, 10);
QV_LAYOUT(QvEnd, LatestRecordTime, 12);
QV_LAYOUT(QvEnd, Title1, 16);
QV_LAYOUT(QvEnd, Model, 98);
QV_LAYOUT(QvEnd, FileName, 100);
QV_LAYOUT(QvEnd, Title2, 356);
QV_LAYOUT(QvEnd, Title3, 438);
QV_LAYOUT(QvEnd, EndRecordStopTime, 520);
QV_LAYOUT(QvEnd, SerialText, 524);

/**
 * Code 16, from the sample stream of item 6 (general models) or 7 (models 431 and 442): up to 60
 * entries of the time history.
 *
 * An entry is a sample when FirstLevels holds a value above 0, else a marker: FirstLevels holds the
 * negated event code (-0.0 to -112.0), SecondLevels the marker's detail (0 to 15). Run markers (64,
 * 80) end a record. Samples follow one another in StreamPeriod, the first at RecordTime.
 * StreamFlags: 0 without second levels, else 0x0100, 0x0200, 0x0400 or 0x0800 for second levels of
 * kind 1 to 4.
 */
typedef struct QvTimeHistory {
  uint16_t RecordType;    /* 16 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t RecordTime;     /* time: of the first entry */
  uint16_t SettingFormat; /* always 0 */
  uint16_t StreamFlags;   /* bits, see above */
  float FirstLevels[60];  /* dB: first level of each sample, or a marker */
  float SecondLevels[60]; /* level: second level of each sample, or a marker's detail */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint8_t Reserved494[6]; /* zero */
  uint16_t Reserved500;   /* 65535 */
  uint16_t Reserved502;   /* 65535 */
  float StreamPeriod;     /* s: between samples */
  uint16_t EntryCount;    /* entries in use, 1 to 60 */
  uint8_t Reserved510[2]; /* zero */
} QvTimeHistory;
QV_LAYOUT_SIZE(QvTimeHistory, 512);
QV_LAYOUT(QvTimeHistory, RecordType, 0);
QV_LAYOUT(QvTimeHistory, SiteNumber, 2);
QV_LAYOUT(QvTimeHistory, RecordTime, 4);
QV_LAYOUT(QvTimeHistory, SettingFormat, 8);
QV_LAYOUT(QvTimeHistory, StreamFlags, 10);
QV_LAYOUT(QvTimeHistory, FirstLevels, 12);
QV_LAYOUT(QvTimeHistory, SecondLevels, 252);
QV_LAYOUT(QvTimeHistory, Model, 492);
QV_LAYOUT(QvTimeHistory, Reserved494, 494);
QV_LAYOUT(QvTimeHistory, Reserved500, 500);
QV_LAYOUT(QvTimeHistory, Reserved502, 502);
QV_LAYOUT(QvTimeHistory, StreamPeriod, 504);
QV_LAYOUT(QvTimeHistory, EntryCount, 508);
QV_LAYOUT(QvTimeHistory, Reserved510, 510);

/**
 * Code 21, from a list item 21: a spectrum at a time within its run.
 */
typedef struct QvTimedSpectrum {
  uint16_t RecordType;   /* 21 */
  uint16_t SiteNumber;   /* site in force when the record was decoded */
  float SpectrumTime;    /* s: within the run */
  float Level;           /* level */
  uint8_t BlockByte;     /* first byte of the block */
  uint8_t Reserved13[3]; /* zero */
  uint32_t RecordIndex;  /* counts the spectra that the context has delivered */
  float Bands[33]; /* level: 33 third-octave bands when the setup's flag 128 is set, else 11 octave
                      bands */
} QvTimedSpectrum;
QV_LAYOUT_SIZE(QvTimedSpectrum, 152);
QV_LAYOUT(QvTimedSpectrum, RecordType, 0);
QV_LAYOUT(QvTimedSpectrum, SiteNumber, 2);
QV_LAYOUT(QvTimedSpectrum, SpectrumTime, 4);
QV_LAYOUT(QvTimedSpectrum, Level, 8);
QV_LAYOUT(QvTimedSpectrum, BlockByte, 12);
QV_LAYOUT(QvTimedSpectrum, Reserved13, 13);
QV_LAYOUT(QvTimedSpectrum, RecordIndex, 16);
QV_LAYOUT(QvTimedSpectrum, Bands, 20);

/**
 * Code 30, from a 'C' item of model 431: two stamps with reference levels. Positions are those of
 * the item's body.
 */
typedef struct QvReference431 {
  uint16_t RecordType;           /* 30 */
  uint16_t SiteNumber;           /* site in force when the record was decoded */
  uint8_t Reserved4[4];          /* zero */
  uint16_t SettingFormat;        /* always 0 */
  uint16_t Model;                /* instrument model: 431, 442 or another number */
  uint16_t ReferenceByte0;       /* position 0 */
  uint16_t ReferenceByte1;       /* position 1 */
  uint16_t ReferenceByte2;       /* position 2 */
  uint8_t Reserved18[2];         /* zero */
  float ReferenceValue3;         /* positions 3 to 4 */
  float ReferenceValue5;         /* positions 5 to 6 */
  float ReferenceLevel7;         /* level: positions 7 to 8 */
  int32_t ReferenceTime9;        /* time: positions 9 to 14 */
  int32_t ReferenceTime15;       /* time: positions 15 to 20 */
  float ReferenceLevel21;        /* level: positions 21 to 22 */
  float ReferenceLevel43;        /* level: positions 43 to 44 */
  float ReferenceLevel45;        /* level: positions 45 to 46 */
  float ReferenceLevel47;        /* level: positions 47 to 48 */
  float ReferenceValue49;        /* positions 49 to 50 */
  float ReferenceValue51;        /* positions 51 to 52 */
  float ReferenceValue53;        /* positions 53 to 54 */
  uint16_t ReferenceByte55;      /* position 55 */
  uint16_t ReferenceByte56;      /* position 56 */
  uint16_t ReferenceBytes57[33]; /* positions 57 to 89 */
  uint16_t ReferenceByte90;      /* position 90 */
  uint16_t ReferenceByte91;      /* position 91 */
  uint16_t ReferenceByte92;      /* position 92 */
  uint32_t ReferenceWord127;     /* positions 127 to 128 */
} QvReference431;
QV_LAYOUT_SIZE(QvReference431, 148);
QV_LAYOUT(QvReference431, RecordType, 0);
QV_LAYOUT(QvReference431, SiteNumber, 2);
QV_LAYOUT(QvReference431, Reserved4, 4);
QV_LAYOUT(QvReference431, SettingFormat, 8);
QV_LAYOUT(QvReference431, Model, 10);
QV_LAYOUT(QvReference431, ReferenceByte0, 12);
QV_LAYOUT(QvReference431, ReferenceByte1, 14);
QV_LAYOUT(QvReference431, ReferenceByte2, 16);
QV_LAYOUT(QvReference431, Reserved18, 18);
QV_LAYOUT(QvReference431, ReferenceValue3, 20);
QV_LAYOUT(QvReference431, ReferenceValue5, 24);
QV_LAYOUT(QvReference431, ReferenceLevel7, 28);
QV_LAYOUT(QvReference431, ReferenceTime9, 32);
QV_LAYOUT(QvReference431, ReferenceTime15, 36);
QV_LAYOUT(QvReference431, ReferenceLevel21, 40);
QV_LAYOUT(QvReference431, ReferenceLevel43, 44);
QV_LAYOUT(QvReference431, ReferenceLevel45, 48);
QV_LAYOUT(QvReference431, ReferenceLevel47, 52);
QV_LAYOUT(QvReference431, ReferenceValue49, 56);
QV_LAYOUT(QvReference431, ReferenceValue51, 60);
QV_LAYOUT(QvReference431, ReferenceValue53, 64);
QV_LAYOUT(QvReference431, ReferenceByte55, 68);
QV_LAYOUT(QvReference431, ReferenceByte56, 70);
QV_LAYOUT(QvReference431, ReferenceBytes57, 72);
QV_LAYOUT(QvReference431, ReferenceByte90, 138);
QV_LAYOUT(QvReference431, ReferenceByte91, 140);
QV_LAYOUT(QvReference431, ReferenceByte92, 142);
QV_LAYOUT(QvReference431, ReferenceWord127, 144);

/**
 * Code 31, from item 2 of model 431 in mode 0: a set of band levels.
 *
 * BandFlags 2: all thirty third-octave bands. BandFlags 0: ten bands, every third one, in elements
 * 1, 4, 7 to 28; the other elements are zero.
 */
typedef struct QvBands431 {
  uint16_t RecordType;    /* 31 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t RecordTime;     /* time */
  uint16_t SettingFormat; /* always 0 */
  uint8_t Reserved10[2];  /* zero */
  float Duration;         /* s */
  uint16_t BandFlags;     /* bits, see above */
  uint8_t Reserved18[2];  /* zero */
  float Bands[30];        /* level */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint16_t Byte11;        /* position 11 */
  uint32_t RecordIndex;   /* 1 for the first byte 2 item of the file, then 2, 3 and so on */
} QvBands431;
QV_LAYOUT_SIZE(QvBands431, 148);
QV_LAYOUT(QvBands431, RecordType, 0);
QV_LAYOUT(QvBands431, SiteNumber, 2);
QV_LAYOUT(QvBands431, RecordTime, 4);
QV_LAYOUT(QvBands431, SettingFormat, 8);
QV_LAYOUT(QvBands431, Reserved10, 10);
QV_LAYOUT(QvBands431, Duration, 12);
QV_LAYOUT(QvBands431, BandFlags, 16);
QV_LAYOUT(QvBands431, Reserved18, 18);
QV_LAYOUT(QvBands431, Bands, 20);
QV_LAYOUT(QvBands431, Model, 140);
QV_LAYOUT(QvBands431, Byte11, 142);
QV_LAYOUT(QvBands431, RecordIndex, 144);

/**
 * Code 32, from item 2 of model 431 in mode 1: a summary with two stamps. Positions are those of
 * the item's body.
 */
typedef struct QvSummary431 {
  uint16_t RecordType;    /* 32 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t RecordTime;     /* time: first stamp */
  uint16_t SettingFormat; /* always 0 */
  uint8_t Reserved10[2];  /* zero */
  float Duration;         /* s */
  uint8_t Reserved16[2];  /* zero */
  uint16_t SummaryByte33; /* position 33 */
  int32_t SecondTime;     /* time: second stamp */
  uint16_t SummaryByte32; /* position 32 */
  uint16_t SummaryByte35; /* position 35 */
  float SummaryValue17;   /* positions 17 and 18 */
  float SummaryValue23;   /* positions 23 and 24 */
  float SummaryValue21;   /* positions 21 and 22 */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint16_t SummaryByte31; /* position 31 */
  float SummaryValue25;   /* positions 25 and 26 */
  uint16_t SummaryByte36; /* position 36 */
  uint16_t SummaryByte37; /* position 37 */
  uint32_t RecordIndex;   /* 1 for the first byte 2 item of the file, then 2, 3 and so on */
  float SummaryValue19;   /* positions 19 and 20 */
  float SummaryValue29;   /* positions 29 and 30 */
  float SummaryValue27;   /* positions 27 and 28 */
  uint16_t SummaryByte34; /* position 34 */
  uint8_t Reserved70[2];  /* zero */
} QvSummary431;
QV_LAYOUT_SIZE(QvSummary431, 72);
QV_LAYOUT(QvSummary431, RecordType, 0);
QV_LAYOUT(QvSummary431, SiteNumber, 2);
QV_LAYOUT(QvSummary431, RecordTime, 4);
QV_LAYOUT(QvSummary431, SettingFormat, 8);
QV_LAYOUT(QvSummary431, Reserved10, 10);
QV_LAYOUT(QvSummary431, Duration, 12);
QV_LAYOUT(QvSummary431, Reserved16, 16);
QV_LAYOUT(QvSummary431, SummaryByte33, 18);
QV_LAYOUT(QvSummary431, SecondTime, 20);
QV_LAYOUT(QvSummary431, SummaryByte32, 24);
QV_LAYOUT(QvSummary431, SummaryByte35, 26);
QV_LAYOUT(QvSummary431, SummaryValue17, 28);
QV_LAYOUT(QvSummary431, SummaryValue23, 32);
QV_LAYOUT(QvSummary431, SummaryValue21, 36);
QV_LAYOUT(QvSummary431, Model, 40);
QV_LAYOUT(QvSummary431, SummaryByte31, 42);
QV_LAYOUT(QvSummary431, SummaryValue25, 44);
QV_LAYOUT(QvSummary431, SummaryByte36, 48);
QV_LAYOUT(QvSummary431, SummaryByte37, 50);
QV_LAYOUT(QvSummary431, RecordIndex, 52);
QV_LAYOUT(QvSummary431, SummaryValue19, 56);
QV_LAYOUT(QvSummary431, SummaryValue29, 60);
QV_LAYOUT(QvSummary431, SummaryValue27, 64);
QV_LAYOUT(QvSummary431, SummaryByte34, 68);
QV_LAYOUT(QvSummary431, Reserved70, 70);

/**
 * Code 33, from an 'M' item of model 431 with setup mode 0. Positions are those of the setup block;
 * what a byte stands for is the instrument's own where no name tells it.
 */
typedef struct QvSetupBand431 {
  uint16_t RecordType;        /* 33 */
  uint16_t SiteNumber;        /* site in force when the record was decoded */
  uint8_t Reserved4[4];       /* zero */
  uint16_t SettingFormat;     /* always 0 */
  uint16_t Model;             /* instrument model: 431, 442 or another number */
  uint16_t SetupHead;         /* position 0 */
  char SetupTag[8];           /* raw text: positions 1 to 8 */
  uint8_t Reserved22[2];      /* zero */
  char SetupTitle[30];        /* raw text: positions 9 to 38 */
  uint8_t Reserved54[2];      /* zero */
  uint16_t SetupMode;         /* position 39 */
  uint16_t SetupByte40;       /* position 40 */
  uint16_t SetupFlagsOut;     /* position 41: flags */
  uint16_t FlagsA;            /* position 42 */
  uint16_t SetupByte56;       /* position 56 */
  char DateA[12];             /* text: positions 57 to 59 */
  char DateB[12];             /* text: positions 60 to 62 */
  char TimeA[6];              /* text: positions 63 to 64 */
  char TimeB[6];              /* text: positions 65 to 66 */
  char TimeC[6];              /* text: positions 67 to 68 */
  char TimeD[6];              /* text: positions 69 to 70 */
  char ClockA[10];            /* text: positions 71 to 73 */
  uint16_t SetupByte86;       /* position 86 */
  uint16_t SetupByte87;       /* position 87 */
  uint16_t SetupByte88;       /* position 88 */
  uint16_t SetupByte89;       /* position 89 */
  uint16_t SetupByte90;       /* position 90 */
  uint16_t SetupByte91;       /* position 91 */
  uint16_t SetupByte98;       /* position 98 */
  uint16_t SetupByte99;       /* position 99 */
  char ClockB[10];            /* text: positions 100 to 102 */
  uint16_t SetupBytes110[33]; /* positions 110 to 142 */
  uint16_t SetupByte145;      /* position 145 */
  uint16_t SetupByte146;      /* position 146 */
  uint16_t SetupByte147;      /* position 147 */
  uint16_t SetupByte148;      /* position 148 */
  uint16_t SetupBytes153[33]; /* positions 153 to 185 */
  uint8_t Reserved290[14];    /* zero */
} QvSetupBand431;
QV_LAYOUT_SIZE(QvSetupBand431, 304);
QV_LAYOUT(QvSetupBand431, RecordType, 0);
QV_LAYOUT(QvSetupBand431, SiteNumber, 2);
QV_LAYOUT(QvSetupBand431, Reserved4, 4);
QV_LAYOUT(QvSetupBand431, SettingFormat, 8);
QV_LAYOUT(QvSetupBand431, Model, 10);
QV_LAYOUT(QvSetupBand431, SetupHead, 12);
QV_LAYOUT(QvSetupBand431, SetupTag, 14);
QV_LAYOUT(QvSetupBand431, Reserved22, 22);
QV_LAYOUT(QvSetupBand431, SetupTitle, 24);
QV_LAYOUT(QvSetupBand431, Reserved54, 54);
QV_LAYOUT(QvSetupBand431, SetupMode, 56);
QV_LAYOUT(QvSetupBand431, SetupByte40, 58);
QV_LAYOUT(QvSetupBand431, SetupFlagsOut, 60);
QV_LAYOUT(QvSetupBand431, FlagsA, 62);
QV_LAYOUT(QvSetupBand431, SetupByte56, 64);
QV_LAYOUT(QvSetupBand431, DateA, 66);
QV_LAYOUT(QvSetupBand431, DateB, 78);
QV_LAYOUT(QvSetupBand431, TimeA, 90);
QV_LAYOUT(QvSetupBand431, TimeB, 96);
QV_LAYOUT(QvSetupBand431, TimeC, 102);
QV_LAYOUT(QvSetupBand431, TimeD, 108);
QV_LAYOUT(QvSetupBand431, ClockA, 114);
QV_LAYOUT(QvSetupBand431, SetupByte86, 124);
QV_LAYOUT(QvSetupBand431, SetupByte87, 126);
QV_LAYOUT(QvSetupBand431, SetupByte88, 128);
QV_LAYOUT(QvSetupBand431, SetupByte89, 130);
QV_LAYOUT(QvSetupBand431, SetupByte90, 132);
QV_LAYOUT(QvSetupBand431, SetupByte91, 134);
QV_LAYOUT(QvSetupBand431, SetupByte98, 136);
QV_LAYOUT(QvSetupBand431, SetupByte99, 138);
QV_LAYOUT(QvSetupBand431, ClockB, 140);
QV_LAYOUT(QvSetupBand431, SetupBytes110, 150);
QV_LAYOUT(QvSetupBand431, SetupByte145, 216);
QV_LAYOUT(QvSetupBand431, SetupByte146, 218);
QV_LAYOUT(QvSetupBand431, SetupByte147, 220);
QV_LAYOUT(QvSetupBand431, SetupByte148, 222);
QV_LAYOUT(QvSetupBand431, SetupBytes153, 224);
QV_LAYOUT(QvSetupBand431, Reserved290, 290);

/**
 * Code 34, from an 'M' item of model 431 with setup mode 1. Positions are those of the setup block;
 * what a byte stands for is the instrument's own where no name tells it.
 */
typedef struct QvSetupShort431 {
  uint16_t RecordType;     /* 34 */
  uint16_t SiteNumber;     /* site in force when the record was decoded */
  uint8_t Reserved4[4];    /* zero */
  uint16_t SettingFormat;  /* always 0 */
  uint16_t Model;          /* instrument model: 431, 442 or another number */
  uint16_t SetupHead;      /* position 0 */
  char SetupTag[8];        /* raw text: positions 1 to 8 */
  uint8_t Reserved22[2];   /* zero */
  char SetupTitle[30];     /* raw text: positions 9 to 38 */
  uint8_t Reserved54[2];   /* zero */
  uint16_t SetupMode;      /* position 39 */
  uint16_t SetupByte40;    /* position 40 */
  uint16_t SetupFlagsOut;  /* position 41: flags */
  uint16_t SetupByte74;    /* position 74 */
  uint16_t SetupByte75;    /* position 75 */
  uint16_t SetupByte76;    /* position 76 */
  uint16_t SetupByte86;    /* position 86 */
  uint16_t SetupByte87;    /* position 87 */
  uint16_t SetupByte88;    /* position 88 */
  uint16_t SetupByte89;    /* position 89 */
  uint16_t SetupByte90;    /* position 90 */
  uint16_t SetupByte91;    /* position 91 */
  uint16_t SetupByte92;    /* position 92 */
  uint16_t SetupByte145;   /* position 145 */
  uint16_t SetupByte146;   /* position 146 */
  uint16_t SetupByte147;   /* position 147 */
  uint8_t Reserved88[216]; /* zero */
} QvSetupShort431;
QV_LAYOUT_SIZE(QvSetupShort431, 304);
QV_LAYOUT(QvSetupShort431, RecordType, 0);
QV_LAYOUT(QvSetupShort431, SiteNumber, 2);
QV_LAYOUT(QvSetupShort431, Reserved4, 4);
QV_LAYOUT(QvSetupShort431, SettingFormat, 8);
QV_LAYOUT(QvSetupShort431, Model, 10);
QV_LAYOUT(QvSetupShort431, SetupHead, 12);
QV_LAYOUT(QvSetupShort431, SetupTag, 14);
QV_LAYOUT(QvSetupShort431, Reserved22, 22);
QV_LAYOUT(QvSetupShort431, SetupTitle, 24);
QV_LAYOUT(QvSetupShort431, Reserved54, 54);
QV_LAYOUT(QvSetupShort431, SetupMode, 56);
QV_LAYOUT(QvSetupShort431, SetupByte40, 58);
QV_LAYOUT(QvSetupShort431, SetupFlagsOut, 60);
QV_LAYOUT(QvSetupShort431, SetupByte74, 62);
QV_LAYOUT(QvSetupShort431, SetupByte75, 64);
QV_LAYOUT(QvSetupShort431, SetupByte76, 66);
QV_LAYOUT(QvSetupShort431, SetupByte86, 68);
QV_LAYOUT(QvSetupShort431, SetupByte87, 70);
QV_LAYOUT(QvSetupShort431, SetupByte88, 72);
QV_LAYOUT(QvSetupShort431, SetupByte89, 74);
QV_LAYOUT(QvSetupShort431, SetupByte90, 76);
QV_LAYOUT(QvSetupShort431, SetupByte91, 78);
QV_LAYOUT(QvSetupShort431, SetupByte92, 80);
QV_LAYOUT(QvSetupShort431, SetupByte145, 82);
QV_LAYOUT(QvSetupShort431, SetupByte146, 84);
QV_LAYOUT(QvSetupShort431, SetupByte147, 86);
QV_LAYOUT(QvSetupShort431, Reserved88, 88);

/**
 * Code 35, from an 'M' item of model 431 with setup mode 2 or 3. Positions are those of the setup
 * block; what a byte stands for is the instrument's own where no name tells it.
 */
typedef struct QvSetupLogging431 {
  uint16_t RecordType;           /* 35 */
  uint16_t SiteNumber;           /* site in force when the record was decoded */
  uint8_t Reserved4[4];          /* zero */
  uint16_t SettingFormat;        /* always 0 */
  uint16_t Model;                /* instrument model: 431, 442 or another number */
  uint16_t SetupHead;            /* position 0 */
  char SetupTag[8];              /* raw text: positions 1 to 8 */
  uint8_t Reserved22[2];         /* zero */
  char SetupTitle[30];           /* raw text: positions 9 to 38 */
  uint8_t Reserved54[2];         /* zero */
  uint16_t SetupMode;            /* position 39 */
  uint16_t SetupByte40;          /* position 40 */
  uint16_t SetupFlagsOut;        /* position 41: flags */
  uint16_t FlagsA;               /* position 42 */
  uint16_t SetupByte46;          /* position 46 */
  uint16_t FlagsB;               /* position 47 */
  uint16_t FlagsC;               /* position 48 */
  uint16_t FlagsD;               /* position 49 */
  uint16_t SetupByte50;          /* position 50 */
  uint16_t SetupByte56;          /* position 56 */
  char DateA[12];                /* text: positions 57 to 59 */
  char DateB[12];                /* text: positions 60 to 62 */
  char TimeA[6];                 /* text: positions 63 to 64 */
  char TimeB[6];                 /* text: positions 65 to 66 */
  char TimeC[6];                 /* text: positions 67 to 68 */
  char TimeD[6];                 /* text: positions 69 to 70 */
  char ClockA[10];               /* text: positions 71 to 73 */
  uint16_t SetupByte74;          /* position 74 */
  uint16_t SetupByte75;          /* position 75 */
  uint16_t SetupByte76;          /* position 76 */
  uint16_t SetupByte77;          /* position 77 */
  uint16_t SetupByte78;          /* position 78 */
  uint16_t SetupByte79;          /* position 79 */
  uint16_t SetupByte80;          /* position 80 */
  uint16_t SetupByte81;          /* position 81 */
  uint16_t SetupByte82;          /* position 82 */
  uint16_t SetupByte83;          /* position 83 */
  uint8_t Reserved154[2];        /* zero */
  float SetupLevel84;            /* level: positions 84 to 85 */
  uint16_t SetupByte86;          /* position 86 */
  uint16_t SetupByte87;          /* position 87 */
  uint16_t SetupByte88;          /* position 88 */
  uint16_t SetupByte89;          /* position 89 */
  uint16_t SetupByte90;          /* position 90 */
  uint16_t SetupByte91;          /* position 91 */
  uint16_t SetupByte98;          /* position 98 */
  uint16_t SetupByte99;          /* position 99 */
  char ClockB[12];               /* text: positions 100 to 102 */
  float KeptSixValues[6];        /* positions 110 to 121 */
  float SetupValue122;           /* positions 122 to 123 */
  uint16_t SetupByte124;         /* position 124 */
  uint16_t SetupByte125;         /* position 125 */
  uint16_t SetupByte126;         /* position 126 */
  uint8_t Reserved222[2];        /* zero */
  float SetupValue127;           /* positions 127 to 129 */
  char SetupText130[4];          /* raw text: positions 130 to 133 */
  uint8_t Reserved232[2];        /* zero */
  uint16_t SetupWord134;         /* positions 134 to 135 */
  uint16_t SetupWord136;         /* positions 136 to 137 */
  uint16_t SetupWord138;         /* positions 138 to 139 */
  uint16_t SecondLevelKind;      /* position 140 */
  uint16_t PeriodValue;          /* position 141 */
  uint16_t PeriodUnit;           /* position 142 */
  uint16_t SetupByte145;         /* position 145 */
  uint16_t SetupByte146;         /* position 146 */
  uint16_t SetupByte147;         /* position 147 */
  uint16_t SetupByte148;         /* position 148 */
  uint16_t SetupByte153;         /* position 153 */
  uint16_t SetupByte154;         /* position 154 */
  uint16_t SetupByte155;         /* position 155 */
  uint16_t SetupByte156;         /* position 156 */
  uint16_t SetupByte157;         /* position 157 */
  uint16_t SetupByte158;         /* position 158 */
  uint16_t SetupByte159;         /* position 159 */
  uint16_t SetupByte160;         /* position 160 */
  uint16_t SetupByte161;         /* position 161 */
  uint16_t SetupByte162;         /* position 162 */
  uint16_t SetupByte163;         /* position 163 */
  uint16_t SetupByte164;         /* position 164 */
  uint16_t SetupByte165;         /* position 165 */
  uint16_t SetupByte166;         /* position 166 */
  uint16_t SetupByte167;         /* position 167 */
  uint16_t SetupByte173;         /* position 173 */
  uint16_t SetupByte174;         /* position 174 */
  uint16_t IntervalSamplePeriod; /* position 176 */
  char ClockC[6];                /* text: positions 177 to 178 */
  uint16_t SetupByte179;         /* position 179 */
  uint16_t SetupByte180;         /* position 180 */
  uint8_t Reserved300[4];        /* zero */
} QvSetupLogging431;
QV_LAYOUT_SIZE(QvSetupLogging431, 304);
QV_LAYOUT(QvSetupLogging431, RecordType, 0);
QV_LAYOUT(QvSetupLogging431, SiteNumber, 2);
QV_LAYOUT(QvSetupLogging431, Reserved4, 4);
QV_LAYOUT(QvSetupLogging431, SettingFormat, 8);
QV_LAYOUT(QvSetupLogging431, Model, 10);
QV_LAYOUT(QvSetupLogging431, SetupHead, 12);
QV_LAYOUT(QvSetupLogging431, SetupTag, 14);
QV_LAYOUT(QvSetupLogging431, Reserved22, 22);
QV_LAYOUT(QvSetupLogging431, SetupTitle, 24);
QV_LAYOUT(QvSetupLogging431, Reserved54, 54);
QV_LAYOUT(QvSetupLogging431, SetupMode, 56);
QV_LAYOUT(QvSetupLogging431, SetupByte40, 58);
QV_LAYOUT(QvSetupLogging431, SetupFlagsOut, 60);
QV_LAYOUT(QvSetupLogging431, FlagsA, 62);
QV_LAYOUT(QvSetupLogging431, SetupByte46, 64);
QV_LAYOUT(QvSetupLogging431, FlagsB, 66);
QV_LAYOUT(QvSetupLogging431, FlagsC, 68);
QV_LAYOUT(QvSetupLogging431, FlagsD, 70);
QV_LAYOUT(QvSetupLogging431, SetupByte50, 72);
QV_LAYOUT(QvSetupLogging431, SetupByte56, 74);
QV_LAYOUT(QvSetupLogging431, DateA, 76);
QV_LAYOUT(QvSetupLogging431, DateB, 88);
QV_LAYOUT(QvSetupLogging431, TimeA, 100);
QV_LAYOUT(QvSetupLogging431, TimeB, 106);
QV_LAYOUT(QvSetupLogging431, TimeC, 112);
QV_LAYOUT(QvSetupLogging431, TimeD, 118);
QV_LAYOUT(QvSetupLogging431, ClockA, 124);
QV_LAYOUT(QvSetupLogging431, SetupByte74, 134);
QV_LAYOUT(QvSetupLogging431, SetupByte75, 136);
QV_LAYOUT(QvSetupLogging431, SetupByte76, 138);
QV_LAYOUT(QvSetupLogging431, SetupByte77, 140);
QV_LAYOUT(QvSetupLogging431, SetupByte78, 142);
QV_LAYOUT(QvSetupLogging431, SetupByte79, 144);
QV_LAYOUT(QvSetupLogging431, SetupByte80, 146);
QV_LAYOUT(QvSetupLogging431, SetupByte81, 148);
QV_LAYOUT(QvSetupLogging431, SetupByte82, 150);
QV_LAYOUT(QvSetupLogging431, SetupByte83, 152);
QV_LAYOUT(QvSetupLogging431, Reserved154, 154);
QV_LAYOUT(QvSetupLogging431, SetupLevel84, 156);
QV_LAYOUT(QvSetupLogging431, SetupByte86, 160);
QV_LAYOUT(QvSetupLogging431, SetupByte87, 162);
QV_LAYOUT(QvSetupLogging431, SetupByte88, 164);
QV_LAYOUT(QvSetupLogging431, SetupByte89, 166);
QV_LAYOUT(QvSetupLogging431, SetupByte90, 168);
QV_LAYOUT(QvSetupLogging431, SetupByte91, 170);
QV_LAYOUT(QvSetupLogging431, SetupByte98, 172);
QV_LAYOUT(QvSetupLogging431, SetupByte99, 174);
QV_LAYOUT(QvSetupLogging431, ClockB, 176);
QV_LAYOUT(QvSetupLogging431, KeptSixValues, 188);
QV_LAYOUT(QvSetupLogging431, SetupValue122, 212);
QV_LAYOUT(QvSetupLogging431, SetupByte124, 216);
QV_LAYOUT(QvSetupLogging431, SetupByte125, 218);
QV_LAYOUT(QvSetupLogging431, SetupByte126, 220);
QV_LAYOUT(QvSetupLogging431, Reserved222, 222);
QV_LAYOUT(QvSetupLogging431, SetupValue127, 224);
QV_LAYOUT(QvSetupLogging431, SetupText130, 228);
QV_LAYOUT(QvSetupLogging431, Reserved232, 232);
QV_LAYOUT(QvSetupLogging431, SetupWord134, 234);
QV_LAYOUT(QvSetupLogging431, SetupWord136, 236);
QV_LAYOUT(QvSetupLogging431, SetupWord138, 238);
QV_LAYOUT(QvSetupLogging431, SecondLevelKind, 240);
QV_LAYOUT(QvSetupLogging431, PeriodValue, 242);
QV_LAYOUT(QvSetupLogging431, PeriodUnit, 244);
QV_LAYOUT(QvSetupLogging431, SetupByte145, 246);
QV_LAYOUT(QvSetupLogging431, SetupByte146, 248);
QV_LAYOUT(QvSetupLogging431, SetupByte147, 250);
QV_LAYOUT(QvSetupLogging431, SetupByte148, 252);
QV_LAYOUT(QvSetupLogging431, SetupByte153, 254);
QV_LAYOUT(QvSetupLogging431, SetupByte154, 256);
QV_LAYOUT(QvSetupLogging431, SetupByte155, 258);
QV_LAYOUT(QvSetupLogging431, SetupByte156, 260);
QV_LAYOUT(QvSetupLogging431, SetupByte157, 262);
QV_LAYOUT(QvSetupLogging431, SetupByte158, 264);
QV_LAYOUT(QvSetupLogging431, SetupByte159, 266);
QV_LAYOUT(QvSetupLogging431, SetupByte160, 268);
QV_LAYOUT(QvSetupLogging431, SetupByte161, 270);
QV_LAYOUT(QvSetupLogging431, SetupByte162, 272);
QV_LAYOUT(QvSetupLogging431, SetupByte163, 274);
QV_LAYOUT(QvSetupLogging431, SetupByte164, 276);
QV_LAYOUT(QvSetupLogging431, SetupByte165, 278);
QV_LAYOUT(QvSetupLogging431, SetupByte166, 280);
QV_LAYOUT(QvSetupLogging431, SetupByte167, 282);
QV_LAYOUT(QvSetupLogging431, SetupByte173, 284);
QV_LAYOUT(QvSetupLogging431, SetupByte174, 286);
QV_LAYOUT(QvSetupLogging431, IntervalSamplePeriod, 288);
QV_LAYOUT(QvSetupLogging431, ClockC, 290);
QV_LAYOUT(QvSetupLogging431, SetupByte179, 296);
QV_LAYOUT(QvSetupLogging431, SetupByte180, 298);
QV_LAYOUT(QvSetupLogging431, Reserved300, 300);

/**
 * Code 36, from an 'S' item of model 431: a site. Positions are those of the item's body.
 * SiteNumber is the number before this item, NewSiteNumber the one that later records carry.
 */
typedef struct QvSite431 {
  uint16_t RecordType;    /* 36 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  uint8_t Reserved4[4];   /* zero */
  uint16_t SettingFormat; /* always 0 */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint16_t SiteByte0;     /* position 0 */
  uint16_t SiteByte1;     /* position 1 */
  uint16_t SiteByte2;     /* position 2 */
  uint16_t SiteByte3;     /* position 3 */
  uint16_t SiteByte4;     /* position 4 */
  char SiteText9[5];      /* raw text: positions 9 to 13 */
  uint8_t Reserved27[1];  /* zero */
  char SiteText14[4];     /* raw text: positions 14 to 17 */
  uint16_t SiteByte18;    /* position 18 */
  char SiteText19[30];    /* raw text: positions 19 to 48 */
  uint8_t Reserved64[2];  /* zero */
  char SiteText49[30];    /* raw text: positions 49 to 78 */
  uint8_t Reserved96[2];  /* zero */
  char SiteText79[30];    /* raw text: positions 79 to 108 */
  uint8_t Reserved128[2]; /* zero */
  uint16_t SiteByte109;   /* position 109 */
  uint8_t SiteByte110;    /* position 110 */
  uint8_t Reserved133[1]; /* zero */
  uint16_t SiteByte111;   /* position 111 */
  uint16_t SiteByte112;   /* position 112 */
  uint16_t SiteByte113;   /* position 113 */
  uint16_t SiteByte114;   /* position 114 */
  uint16_t SiteByte115;   /* position 115 */
  uint16_t SiteByte116;   /* position 116 */
  uint16_t SiteByte117;   /* position 117 */
  uint16_t SiteByte118;   /* position 118 */
  uint16_t SiteByte119;   /* position 119 */
  uint16_t SiteByte120;   /* position 120 */
  char SiteText121[30];   /* raw text: positions 121 to 150 */
  uint8_t Reserved184[2]; /* zero */
  uint16_t NewSiteNumber; /* position 151 */
  char SiteText152[30];   /* raw text: positions 152 to 181 */
  uint8_t Reserved218[2]; /* zero */
  char SiteText182[8];    /* raw text: positions 182 to 189 */
  uint8_t Reserved228[2]; /* zero */
  uint16_t SiteByte190;   /* position 190 */
  uint16_t SiteByte191;   /* position 191 */
  uint16_t SiteByte192;   /* position 192 */
  uint16_t SiteByte193;   /* position 193 */
  uint16_t SiteByte194;   /* position 194 */
  uint16_t SiteByte195;   /* position 195 */
  uint16_t SiteByte196;   /* position 196 */
  uint16_t SiteByte197;   /* position 197 */
  uint8_t Reserved246[2]; /* zero */
  float SiteValue198;     /* positions 198 to 199 */
  char SiteText200[8];    /* raw text: positions 200 to 207 */
  uint8_t Reserved260[2]; /* zero */
  uint16_t SiteByte208;   /* position 208 */
  uint16_t SiteByte209;   /* position 209 */
  char SiteClock210[6];   /* text: positions 210 to 211 */
} QvSite431;
QV_LAYOUT_SIZE(QvSite431, 272);
QV_LAYOUT(QvSite431, RecordType, 0);
QV_LAYOUT(QvSite431, SiteNumber, 2);
QV_LAYOUT(QvSite431, Reserved4, 4);
QV_LAYOUT(QvSite431, SettingFormat, 8);
QV_LAYOUT(QvSite431, Model, 10);
QV_LAYOUT(QvSite431, SiteByte0, 12);
QV_LAYOUT(QvSite431, SiteByte1, 14);
QV_LAYOUT(QvSite431, SiteByte2, 16);
QV_LAYOUT(QvSite431, SiteByte3, 18);
QV_LAYOUT(QvSite431, SiteByte4, 20);
QV_LAYOUT(QvSite431, SiteText9, 22);
QV_LAYOUT(QvSite431, Reserved27, 27);
QV_LAYOUT(QvSite431, SiteText14, 28);
QV_LAYOUT(QvSite431, SiteByte18, 32);
QV_LAYOUT(QvSite431, SiteText19, 34);
QV_LAYOUT(QvSite431, Reserved64, 64);
QV_LAYOUT(QvSite431, SiteText49, 66);
QV_LAYOUT(QvSite431, Reserved96, 96);
QV_LAYOUT(QvSite431, SiteText79, 98);
QV_LAYOUT(QvSite431, Reserved128, 128);
QV_LAYOUT(QvSite431, SiteByte109, 130);
QV_LAYOUT(QvSite431, SiteByte110, 132);
QV_LAYOUT(QvSite431, Reserved133, 133);
QV_LAYOUT(QvSite431, SiteByte111, 134);
QV_LAYOUT(QvSite431, SiteByte112, 136);
QV_LAYOUT(QvSite431, SiteByte113, 138);
QV_LAYOUT(QvSite431, SiteByte114, 140);
QV_LAYOUT(QvSite431, SiteByte115, 142);
QV_LAYOUT(QvSite431, SiteByte116, 144);
QV_LAYOUT(QvSite431, SiteByte117, 146);
QV_LAYOUT(QvSite431, SiteByte118, 148);
QV_LAYOUT(QvSite431, SiteByte119, 150);
QV_LAYOUT(QvSite431, SiteByte120, 152);
QV_LAYOUT(QvSite431, SiteText121, 154);
QV_LAYOUT(QvSite431, Reserved184, 184);
QV_LAYOUT(QvSite431, NewSiteNumber, 186);
QV_LAYOUT(QvSite431, SiteText152, 188);
QV_LAYOUT(QvSite431, Reserved218, 218);
QV_LAYOUT(QvSite431, SiteText182, 220);
QV_LAYOUT(QvSite431, Reserved228, 228);
QV_LAYOUT(QvSite431, SiteByte190, 230);
QV_LAYOUT(QvSite431, SiteByte191, 232);
QV_LAYOUT(QvSite431, SiteByte192, 234);
QV_LAYOUT(QvSite431, SiteByte193, 236);
QV_LAYOUT(QvSite431, SiteByte194, 238);
QV_LAYOUT(QvSite431, SiteByte195, 240);
QV_LAYOUT(QvSite431, SiteByte196, 242);
QV_LAYOUT(QvSite431, SiteByte197, 244);
QV_LAYOUT(QvSite431, Reserved246, 246);
QV_LAYOUT(QvSite431, SiteValue198, 248);
QV_LAYOUT(QvSite431, SiteText200, 252);
QV_LAYOUT(QvSite431, Reserved260, 260);
QV_LAYOUT(QvSite431, SiteByte208, 262);
QV_LAYOUT(QvSite431, SiteByte209, 264);
QV_LAYOUT(QvSite431, SiteClock210, 266);

/**
 * Code 37, from an 'R' item of model 431: the stored results of a run, by register, with settings
 * kept from the blocks before it. Registers that the file did not give are zero, texts empty. R170
 * changes the text of R86 when the text of R87 holds an E; the fields of R170 and R171 of the
 * general form are unused.
 *
 * ResultFlags: 0x0002 register Q209 was not 0; 0x0004 auxiliary channels in intervals or summaries;
 * 0x0008 spans in intervals, summaries and days; 0x0010 the second auxiliary channel is enabled;
 * 0x0040 register Q120 and 0x0080 register Q118 switched on the hourly counters; 0x0200 one of R38
 * to R43 stands in the block.
 */
typedef struct QvResults431 {
  uint16_t RecordType;    /* 37 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t StopTime;       /* time: of the last stop, register R6 */
  uint16_t SettingFormat; /* always 0 */
  uint16_t ResultFlags;   /* bits, see above */
  float SettingR72;       /* register R72 */
  float SettingR77;       /* register R77 */
  float SettingR82;       /* register R82 */
  int32_t SettingR75;     /* register R75 */
  int32_t SettingR80;     /* register R80 */
  int32_t SettingR85;     /* register R85 */
  float SettingR73;       /* register R73 */
  float SettingR78;       /* register R78 */
  float SettingR83;       /* register R83 */
  float SettingR74;       /* register R74 */
  float SettingR79;       /* register R79 */
  float SettingR84;       /* register R84 */
  char AuxName0[10];      /* text: name of auxiliary channel 0 */
  char AuxName1[10];      /* text: name of auxiliary channel 1 */
  char AuxName2[10];      /* text: name of auxiliary channel 2 */
  char AuxUnits0[6];      /* text: units of auxiliary channel 0 */
  char AuxUnits1[6];      /* text: units of auxiliary channel 1 */
  char AuxUnits2[6];      /* text: units of auxiliary channel 2 */
  float SettingR70;       /* register R70 */
  float SettingR156;      /* s: register R156 */
  char SettingR86[8];     /* text: register R86 */
  char SettingR87[4];     /* text: register R87 */
  int32_t SettingR104;    /* time: register R104 */
  int32_t SettingR105;    /* time: register R105 */
  float SettingR107;      /* register R107 */
  float SettingR106;      /* register R106 */
  float SettingR65;       /* register R65 */
  uint16_t SettingQ50;    /* register Q50, or kept from a setup */
  uint16_t SettingQ47;    /* register Q47, or kept from a setup */
  float SettingR44;       /* register R44 */
  float SettingR45;       /* register R45 */
  uint8_t SettingR98[8];  /* register R98 */
  uint8_t Reserved168[4]; /* zero */
  float SettingR68;       /* register R68 */
  float SettingR69;       /* s: register R69 */
  float SettingR90;       /* register R90 */
  int32_t SettingR91;     /* register R91 */
  float SettingR60[24];   /* register R60 */
  int32_t SettingR179;    /* register R179 */
  char SettingR180[6];    /* text: register R180 */
  uint16_t SettingQ54;    /* register Q54 */
  float SettingR48;       /* the last number before register R48, not its own */
  int32_t SettingR53;     /* 1 when the line holds an n: register R53 */
  float SettingR49;       /* register R49 */
  float SettingR51;       /* the last number before register R51, not its own */
  uint16_t SettingQ53;    /* register Q53 */
  uint8_t Reserved314[2]; /* zero */
  float SettingR50;       /* the last number before register R50, not its own */
  char SettingR52[8];     /* text: register R52 */
  float SettingR62;       /* register R62 */
  float SettingR57;       /* register R57 */
  float SettingR38;       /* register R38 */
  float SettingR39;       /* register R39 */
  float SettingR40;       /* register R40 */
  float SettingR41;       /* register R41 */
  float SettingR42;       /* register R42 */
  float SettingR43;       /* register R43 */
  float SettingR19;       /* register R19 */
  float SettingR21;       /* register R21 */
  int32_t SettingR20;     /* time: register R20 */
  int32_t SettingR22;     /* time: register R22 */
  float SettingR15;       /* register R15 */
  float SettingR17;       /* register R17 */
  int32_t SettingR16;     /* time: register R16 */
  int32_t SettingR18;     /* time: register R18 */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint8_t Reserved394[2]; /* zero */
  float
      KeptSixValues[6];  /* registers Q55 to Q60, or kept from a setup; zero when there were none */
  float SettingR172[30]; /* register R172 */
  float SettingR171[30]; /* register R171 */
  float SettingR173[30]; /* register R173 */
  int32_t SettingR35;    /* register R35 */
  int32_t SettingR36;    /* register R36 */
  float SettingR37;      /* s: register R37 */
  float SettingR23;      /* register R23 */
  float SettingR25;      /* register R25 */
  int32_t SettingR33;    /* register R33 */
  int32_t SettingR24;    /* time: register R24 */
  int32_t SettingR26;    /* time: register R26 */
  char SettingR151[4];   /* text: register R151 */
  float SettingR46;      /* register R46 */
  float SettingR47;      /* register R47 */
  uint8_t Reserved824[8];  /* zero */
  int32_t SettingR97;      /* register R97 */
  int32_t SettingR96;      /* register R96 */
  int32_t SettingR181;     /* register R181 */
  int32_t SettingR93;      /* register R93 */
  int32_t SettingR95;      /* register R95 */
  int32_t SettingR94;      /* register R94 */
  int32_t SettingR161;     /* register R161 */
  int32_t SettingR92;      /* register R92 */
  int32_t SettingR31;      /* register R31 */
  int32_t SettingR32;      /* register R32 */
  int32_t SettingR150;     /* register R150 */
  float SettingR5;         /* s: register R5 */
  float SettingR7;         /* s: register R7 */
  float SettingR13;        /* register R13 */
  float SettingR14;        /* register R14 */
  char SettingR89[8];      /* text: register R89 */
  float SettingR162;       /* register R162 */
  int32_t SettingR6;       /* time: register R6 */
  int32_t SettingR8;       /* time: register R8 */
  char SettingR3[51];      /* text: register R3 */
  uint8_t Reserved963[1];  /* zero */
  float SettingR163;       /* register R163 */
  float SettingR164;       /* register R164 */
  float SettingR88;        /* register R88 */
  uint16_t SetupKeptA;     /* register Q49, or kept from a setup */
  uint16_t SetupKeptB;     /* register Q46, or kept from a setup */
  int32_t SettingR158;     /* register R158 */
  float SettingR9;         /* register R9 */
  float SettingR11;        /* register R11 */
  char SettingR10[8];      /* text: register R10 */
  char SettingR12[8];      /* text: register R12 */
  float SettingR27;        /* register R27 */
  float SettingR29;        /* register R29 */
  int32_t SettingR34;      /* register R34 */
  int32_t SettingR28;      /* time: register R28 */
  int32_t SettingR30;      /* time: register R30 */
  float SettingR118;       /* register R118 */
  int32_t SettingR124[8];  /* register R124 */
  float SettingR119;       /* register R119 */
  uint16_t SettingR120;    /* point of the compass, 0 for N, clockwise to 15: register R120 */
  uint8_t Reserved1070[2]; /* zero */
  int32_t SettingR121;     /* time: register R121 */
  uint16_t ModeFormFlag;   /* register Q146, or 1 or 0 by the form of the setup */
  uint8_t Reserved1078[2]; /* zero */
  float SettingR123;       /* register R123 */
  float SettingQ147;       /* register Q147 */
} QvResults431;
QV_LAYOUT_SIZE(QvResults431, 1088);
QV_LAYOUT(QvResults431, RecordType, 0);
QV_LAYOUT(QvResults431, SiteNumber, 2);
QV_LAYOUT(QvResults431, StopTime, 4);
QV_LAYOUT(QvResults431, SettingFormat, 8);
QV_LAYOUT(QvResults431, ResultFlags, 10);
QV_LAYOUT(QvResults431, SettingR72, 12);
QV_LAYOUT(QvResults431, SettingR77, 16);
QV_LAYOUT(QvResults431, SettingR82, 20);
QV_LAYOUT(QvResults431, SettingR75, 24);
QV_LAYOUT(QvResults431, SettingR80, 28);
QV_LAYOUT(QvResults431, SettingR85, 32);
QV_LAYOUT(QvResults431, SettingR73, 36);
QV_LAYOUT(QvResults431, SettingR78, 40);
QV_LAYOUT(QvResults431, SettingR83, 44);
QV_LAYOUT(QvResults431, SettingR74, 48);
QV_LAYOUT(QvResults431, SettingR79, 52);
QV_LAYOUT(QvResults431, SettingR84, 56);
QV_LAYOUT(QvResults431, AuxName0, 60);
QV_LAYOUT(QvResults431, AuxName1, 70);
QV_LAYOUT(QvResults431, AuxName2, 80);
QV_LAYOUT(QvResults431, AuxUnits0, 90);
QV_LAYOUT(QvResults431, AuxUnits1, 96);
QV_LAYOUT(QvResults431, AuxUnits2, 102);
QV_LAYOUT(QvResults431, SettingR70, 108);
QV_LAYOUT(QvResults431, SettingR156, 112);
QV_LAYOUT(QvResults431, SettingR86, 116);
QV_LAYOUT(QvResults431, SettingR87, 124);
QV_LAYOUT(QvResults431, SettingR104, 128);
QV_LAYOUT(QvResults431, SettingR105, 132);
QV_LAYOUT(QvResults431, SettingR107, 136);
QV_LAYOUT(QvResults431, SettingR106, 140);
QV_LAYOUT(QvResults431, SettingR65, 144);
QV_LAYOUT(QvResults431, SettingQ50, 148);
QV_LAYOUT(QvResults431, SettingQ47, 150);
QV_LAYOUT(QvResults431, SettingR44, 152);
QV_LAYOUT(QvResults431, SettingR45, 156);
QV_LAYOUT(QvResults431, SettingR98, 160);
QV_LAYOUT(QvResults431, Reserved168, 168);
QV_LAYOUT(QvResults431, SettingR68, 172);
QV_LAYOUT(QvResults431, SettingR69, 176);
QV_LAYOUT(QvResults431, SettingR90, 180);
QV_LAYOUT(QvResults431, SettingR91, 184);
QV_LAYOUT(QvResults431, SettingR60, 188);
QV_LAYOUT(QvResults431, SettingR179, 284);
QV_LAYOUT(QvResults431, SettingR180, 288);
QV_LAYOUT(QvResults431, SettingQ54, 294);
QV_LAYOUT(QvResults431, SettingR48, 296);
QV_LAYOUT(QvResults431, SettingR53, 300);
QV_LAYOUT(QvResults431, SettingR49, 304);
QV_LAYOUT(QvResults431, SettingR51, 308);
QV_LAYOUT(QvResults431, SettingQ53, 312);
QV_LAYOUT(QvResults431, Reserved314, 314);
QV_LAYOUT(QvResults431, SettingR50, 316);
QV_LAYOUT(QvResults431, SettingR52, 320);
QV_LAYOUT(QvResults431, SettingR62, 328);
QV_LAYOUT(QvResults431, SettingR57, 332);
QV_LAYOUT(QvResults431, SettingR38, 336);
QV_LAYOUT(QvResults431, SettingR39, 340);
QV_LAYOUT(QvResults431, SettingR40, 344);
QV_LAYOUT(QvResults431, SettingR41, 348);
QV_LAYOUT(QvResults431, SettingR42, 352);
QV_LAYOUT(QvResults431, SettingR43, 356);
QV_LAYOUT(QvResults431, SettingR19, 360);
QV_LAYOUT(QvResults431, SettingR21, 364);
QV_LAYOUT(QvResults431, SettingR20, 368);
QV_LAYOUT(QvResults431, SettingR22, 372);
QV_LAYOUT(QvResults431, SettingR15, 376);
QV_LAYOUT(QvResults431, SettingR17, 380);
QV_LAYOUT(QvResults431, SettingR16, 384);
QV_LAYOUT(QvResults431, SettingR18, 388);
QV_LAYOUT(QvResults431, Model, 392);
QV_LAYOUT(QvResults431, Reserved394, 394);
QV_LAYOUT(QvResults431, KeptSixValues, 396);
QV_LAYOUT(QvResults431, SettingR172, 420);
QV_LAYOUT(QvResults431, SettingR171, 540);
QV_LAYOUT(QvResults431, SettingR173, 660);
QV_LAYOUT(QvResults431, SettingR35, 780);
QV_LAYOUT(QvResults431, SettingR36, 784);
QV_LAYOUT(QvResults431, SettingR37, 788);
QV_LAYOUT(QvResults431, SettingR23, 792);
QV_LAYOUT(QvResults431, SettingR25, 796);
QV_LAYOUT(QvResults431, SettingR33, 800);
QV_LAYOUT(QvResults431, SettingR24, 804);
QV_LAYOUT(QvResults431, SettingR26, 808);
QV_LAYOUT(QvResults431, SettingR151, 812);
QV_LAYOUT(QvResults431, SettingR46, 816);
QV_LAYOUT(QvResults431, SettingR47, 820);
QV_LAYOUT(QvResults431, Reserved824, 824);
QV_LAYOUT(QvResults431, SettingR97, 832);
QV_LAYOUT(QvResults431, SettingR96, 836);
QV_LAYOUT(QvResults431, SettingR181, 840);
QV_LAYOUT(QvResults431, SettingR93, 844);
QV_LAYOUT(QvResults431, SettingR95, 848);
QV_LAYOUT(QvResults431, SettingR94, 852);
QV_LAYOUT(QvResults431, SettingR161, 856);
QV_LAYOUT(QvResults431, SettingR92, 860);
QV_LAYOUT(QvResults431, SettingR31, 864);
QV_LAYOUT(QvResults431, SettingR32, 868);
QV_LAYOUT(QvResults431, SettingR150, 872);
QV_LAYOUT(QvResults431, SettingR5, 876);
QV_LAYOUT(QvResults431, SettingR7, 880);
QV_LAYOUT(QvResults431, SettingR13, 884);
QV_LAYOUT(QvResults431, SettingR14, 888);
QV_LAYOUT(QvResults431, SettingR89, 892);
QV_LAYOUT(QvResults431, SettingR162, 900);
QV_LAYOUT(QvResults431, SettingR6, 904);
QV_LAYOUT(QvResults431, SettingR8, 908);
QV_LAYOUT(QvResults431, SettingR3, 912);
QV_LAYOUT(QvResults431, Reserved963, 963);
QV_LAYOUT(QvResults431, SettingR163, 964);
QV_LAYOUT(QvResults431, SettingR164, 968);
QV_LAYOUT(QvResults431, SettingR88, 972);
QV_LAYOUT(QvResults431, SetupKeptA, 976);
QV_LAYOUT(QvResults431, SetupKeptB, 978);
QV_LAYOUT(QvResults431, SettingR158, 980);
QV_LAYOUT(QvResults431, SettingR9, 984);
QV_LAYOUT(QvResults431, SettingR11, 988);
QV_LAYOUT(QvResults431, SettingR10, 992);
QV_LAYOUT(QvResults431, SettingR12, 1000);
QV_LAYOUT(QvResults431, SettingR27, 1008);
QV_LAYOUT(QvResults431, SettingR29, 1012);
QV_LAYOUT(QvResults431, SettingR34, 1016);
QV_LAYOUT(QvResults431, SettingR28, 1020);
QV_LAYOUT(QvResults431, SettingR30, 1024);
QV_LAYOUT(QvResults431, SettingR118, 1028);
QV_LAYOUT(QvResults431, SettingR124, 1032);
QV_LAYOUT(QvResults431, SettingR119, 1064);
QV_LAYOUT(QvResults431, SettingR120, 1068);
QV_LAYOUT(QvResults431, Reserved1070, 1070);
QV_LAYOUT(QvResults431, SettingR121, 1072);
QV_LAYOUT(QvResults431, ModeFormFlag, 1076);
QV_LAYOUT(QvResults431, Reserved1078, 1078);
QV_LAYOUT(QvResults431, SettingR123, 1080);
QV_LAYOUT(QvResults431, SettingQ147, 1084);

/**
 * Code 50, from a 'C' item of every model but 431: two stamps with reference levels. Positions are
 * those of the item's body.
 */
typedef struct QvReference {
  uint16_t RecordType;      /* 50 */
  uint16_t SiteNumber;      /* site in force when the record was decoded */
  uint8_t Reserved4[4];     /* zero */
  uint16_t SettingFormat;   /* always 0 */
  uint16_t Model;           /* instrument model: 431, 442 or another number */
  uint16_t ReferenceByte0;  /* position 0 */
  uint16_t ReferenceByte1;  /* position 1 */
  float ReferenceValue3;    /* positions 3 to 4 */
  float ReferenceValue5;    /* positions 5 to 6 */
  float ReferenceValue7;    /* positions 7 to 8 */
  int32_t ReferenceTime9;   /* time: positions 9 to 14 */
  int32_t ReferenceTime15;  /* time: positions 15 to 20 */
  float ReferenceLevel21;   /* level: positions 21 to 22 */
  float ReferenceLevel23;   /* level: positions 23 to 24 */
  float ReferenceLevel25;   /* level: positions 25 to 26 */
  float ReferenceValue37;   /* positions 37 to 38 */
  float ReferenceLevel39;   /* level: positions 39 to 40 */
  float ReferenceLevel41;   /* level: positions 41 to 42 */
  uint32_t ReferenceWord63; /* positions 63 to 64 */
} QvReference;
QV_LAYOUT_SIZE(QvReference, 64);
QV_LAYOUT(QvReference, RecordType, 0);
QV_LAYOUT(QvReference, SiteNumber, 2);
QV_LAYOUT(QvReference, Reserved4, 4);
QV_LAYOUT(QvReference, SettingFormat, 8);
QV_LAYOUT(QvReference, Model, 10);
QV_LAYOUT(QvReference, ReferenceByte0, 12);
QV_LAYOUT(QvReference, ReferenceByte1, 14);
QV_LAYOUT(QvReference, ReferenceValue3, 16);
QV_LAYOUT(QvReference, ReferenceValue5, 20);
QV_LAYOUT(QvReference, ReferenceValue7, 24);
QV_LAYOUT(QvReference, ReferenceTime9, 28);
QV_LAYOUT(QvReference, ReferenceTime15, 32);
QV_LAYOUT(QvReference, ReferenceLevel21, 36);
QV_LAYOUT(QvReference, ReferenceLevel23, 40);
QV_LAYOUT(QvReference, ReferenceLevel25, 44);
QV_LAYOUT(QvReference, ReferenceValue37, 48);
QV_LAYOUT(QvReference, ReferenceLevel39, 52);
QV_LAYOUT(QvReference, ReferenceLevel41, 56);
QV_LAYOUT(QvReference, ReferenceWord63, 60);

/**
 * Code 51, from an 'M' item with setup mode 0, every model but 431. Positions are those of the
 * setup block; what a byte stands for is the instrument's own where no name tells it.
 */
typedef struct QvSetupBand {
  uint16_t RecordType;       /* 51 */
  uint16_t SiteNumber;       /* site in force when the record was decoded */
  uint8_t Reserved4[4];      /* zero */
  uint16_t SettingFormat;    /* always 0 */
  uint16_t Model;            /* instrument model: 431, 442 or another number */
  uint16_t SetupHead;        /* position 0 */
  char SetupTag[8];          /* raw text: positions 1 to 8 */
  uint8_t Reserved22[2];     /* zero */
  char SetupTitle[30];       /* raw text: positions 9 to 38 */
  uint8_t Reserved54[2];     /* zero */
  uint16_t SetupMode;        /* position 39 */
  uint16_t SetupByte40;      /* position 40 */
  uint16_t SetupFlagsOut;    /* position 41: flags */
  uint16_t FlagsA;           /* position 42 */
  uint16_t FlagsD;           /* position 49; from firmware 3.6 on */
  uint16_t SetupByte56;      /* position 56 */
  char DateA[12];            /* text: positions 57 to 59 */
  char DateB[12];            /* text: positions 60 to 62 */
  char TimeA[6];             /* text: positions 63 to 64 */
  char TimeB[6];             /* text: positions 65 to 66 */
  char TimeC[6];             /* text: positions 67 to 68 */
  char TimeD[6];             /* text: positions 69 to 70 */
  char ClockA[10];           /* text: positions 71 to 73 */
  uint16_t SetupByte86;      /* position 86 */
  uint16_t SetupByte87;      /* position 87 */
  uint16_t SetupByte89;      /* position 89 */
  uint16_t SetupByte90;      /* position 90 */
  uint16_t SetupByte94;      /* position 94; from firmware above 3.115 on */
  uint16_t SetupByte92;      /* position 92 */
  uint16_t SetupByte93;      /* position 93 */
  uint16_t SetupByte98;      /* position 98 */
  uint16_t SetupByte99;      /* position 99 */
  char ClockB[12];           /* text: positions 100 to 102 */
  float SetupValue122;       /* positions 122 to 123; from firmware above 2.01 on */
  uint16_t SetupByte179;     /* position 179; from firmware above 2.01 on */
  uint16_t SetupByte124;     /* position 124; from firmware above 2.01 on */
  uint16_t SetupByte125;     /* position 125; from firmware above 2.01 on */
  uint16_t SetupByte126;     /* position 126; from firmware above 2.01 on */
  uint16_t FlagsB;           /* position 47; from firmware above 2.01 on */
  uint16_t SecondSpectrumOn; /* position 103; 0 at firmware 2.01 or below */
  uint16_t StreamSelector;   /* position 140; from firmware above 2.01 on */
  uint16_t PeriodValue;      /* position 141; from firmware above 2.01 on */
  uint16_t PeriodUnit;       /* position 142; from firmware above 2.01 on */
  uint16_t SetupByte145;     /* position 145 */
  uint16_t SetupByte146;     /* position 146 */
  uint16_t SetupByte147;     /* position 147 */
  uint16_t SetupByte148;     /* position 148 */
  uint16_t SetupByte153;     /* position 153; from firmware above 2.01 on */
  uint16_t SetupByte154;     /* position 154; from firmware above 2.01 on */
  uint16_t SetupByte155;     /* position 155; from firmware above 2.01 on */
  uint16_t SetupByte156;     /* position 156; from firmware above 2.01 on */
  uint16_t SetupByte157;     /* position 157; from firmware above 2.01 on */
  uint16_t SetupByte158;     /* position 158; from firmware above 2.01 on */
  uint16_t SetupByte159;     /* position 159; from firmware above 2.01 on */
  uint16_t SetupByte160;     /* position 160; from firmware above 2.01 on */
  uint16_t SetupByte161;     /* position 161; from firmware above 2.01 on */
  uint16_t SetupByte162;     /* position 162; from firmware above 2.01 on */
  uint16_t SetupByte163;     /* position 163; from firmware above 2.01 on */
  uint16_t SetupByte164;     /* position 164; from firmware above 2.01 on */
  uint16_t SetupByte165;     /* position 165; from firmware above 2.01 on */
  uint16_t StreamLevelBase;  /* position 181; from firmware above 2.01 on */
  uint16_t StreamMaskA;      /* position 182; from firmware above 2.01 on */
  uint16_t StreamMaskB;      /* position 184; from firmware above 2.01 on */
  uint16_t StreamMaskC;      /* position 186; from firmware above 2.01 on */
  uint8_t Reserved220[2];    /* zero */
  uint16_t StreamMaskD;      /* position 183; from firmware above 2.01 on */
  uint16_t StreamMaskE;      /* position 185; from firmware above 2.01 on */
  uint16_t StreamMaskF;      /* position 187; from firmware above 2.01 on */
  uint16_t SetupByte180;     /* position 180; from firmware above 2.01 on */
  uint8_t Reserved230[2];    /* zero */
  float KeptSixValues[6];    /* positions 110 to 121; from firmware above 2.01 on */
  uint16_t SpectraKind;      /* position 104 */
  uint8_t Reserved258[2];    /* zero */
  float SetupValue127;       /* positions 127 to 129; from firmware 3.6 on */
  char SetupText130[4];      /* raw text: positions 130 to 133; from firmware 3.6 on */
  uint8_t Reserved268[2];    /* zero */
  uint16_t SetupWord134;     /* positions 134 to 135; from firmware 3.6 on */
  uint16_t SetupWord136;     /* positions 136 to 137; from firmware 3.6 on */
  uint16_t SetupByte138;     /* position 138; from firmware 3.6 on */
  uint8_t SetupByte139;      /* position 139; from firmware 3.6 on */
  uint8_t Reserved277[27];   /* zero */
} QvSetupBand;
QV_LAYOUT_SIZE(QvSetupBand, 304);
QV_LAYOUT(QvSetupBand, RecordType, 0);
QV_LAYOUT(QvSetupBand, SiteNumber, 2);
QV_LAYOUT(QvSetupBand, Reserved4, 4);
QV_LAYOUT(QvSetupBand, SettingFormat, 8);
QV_LAYOUT(QvSetupBand, Model, 10);
QV_LAYOUT(QvSetupBand, SetupHead, 12);
QV_LAYOUT(QvSetupBand, SetupTag, 14);
QV_LAYOUT(QvSetupBand, Reserved22, 22);
QV_LAYOUT(QvSetupBand, SetupTitle, 24);
QV_LAYOUT(QvSetupBand, Reserved54, 54);
QV_LAYOUT(QvSetupBand, SetupMode, 56);
QV_LAYOUT(QvSetupBand, SetupByte40, 58);
QV_LAYOUT(QvSetupBand, SetupFlagsOut, 60);
QV_LAYOUT(QvSetupBand, FlagsA, 62);
QV_LAYOUT(QvSetupBand, FlagsD, 64);
QV_LAYOUT(QvSetupBand, SetupByte56, 66);
QV_LAYOUT(QvSetupBand, DateA, 68);
QV_LAYOUT(QvSetupBand, DateB, 80);
QV_LAYOUT(QvSetupBand, TimeA, 92);
QV_LAYOUT(QvSetupBand, TimeB, 98);
QV_LAYOUT(QvSetupBand, TimeC, 104);
QV_LAYOUT(QvSetupBand, TimeD, 110);
QV_LAYOUT(QvSetupBand, ClockA, 116);
QV_LAYOUT(QvSetupBand, SetupByte86, 126);
QV_LAYOUT(QvSetupBand, SetupByte87, 128);
QV_LAYOUT(QvSetupBand, SetupByte89, 130);
QV_LAYOUT(QvSetupBand, SetupByte90, 132);
QV_LAYOUT(QvSetupBand, SetupByte94, 134);
QV_LAYOUT(QvSetupBand, SetupByte92, 136);
QV_LAYOUT(QvSetupBand, SetupByte93, 138);
QV_LAYOUT(QvSetupBand, SetupByte98, 140);
QV_LAYOUT(QvSetupBand, SetupByte99, 142);
QV_LAYOUT(QvSetupBand, ClockB, 144);
QV_LAYOUT(QvSetupBand, SetupValue122, 156);
QV_LAYOUT(QvSetupBand, SetupByte179, 160);
QV_LAYOUT(QvSetupBand, SetupByte124, 162);
QV_LAYOUT(QvSetupBand, SetupByte125, 164);
QV_LAYOUT(QvSetupBand, SetupByte126, 166);
QV_LAYOUT(QvSetupBand, FlagsB, 168);
QV_LAYOUT(QvSetupBand, SecondSpectrumOn, 170);
QV_LAYOUT(QvSetupBand, StreamSelector, 172);
QV_LAYOUT(QvSetupBand, PeriodValue, 174);
QV_LAYOUT(QvSetupBand, PeriodUnit, 176);
QV_LAYOUT(QvSetupBand, SetupByte145, 178);
QV_LAYOUT(QvSetupBand, SetupByte146, 180);
QV_LAYOUT(QvSetupBand, SetupByte147, 182);
QV_LAYOUT(QvSetupBand, SetupByte148, 184);
QV_LAYOUT(QvSetupBand, SetupByte153, 186);
QV_LAYOUT(QvSetupBand, SetupByte154, 188);
QV_LAYOUT(QvSetupBand, SetupByte155, 190);
QV_LAYOUT(QvSetupBand, SetupByte156, 192);
QV_LAYOUT(QvSetupBand, SetupByte157, 194);
QV_LAYOUT(QvSetupBand, SetupByte158, 196);
QV_LAYOUT(QvSetupBand, SetupByte159, 198);
QV_LAYOUT(QvSetupBand, SetupByte160, 200);
QV_LAYOUT(QvSetupBand, SetupByte161, 202);
QV_LAYOUT(QvSetupBand, SetupByte162, 204);
QV_LAYOUT(QvSetupBand, SetupByte163, 206);
QV_LAYOUT(QvSetupBand, SetupByte164, 208);
QV_LAYOUT(QvSetupBand, SetupByte165, 210);
QV_LAYOUT(QvSetupBand, StreamLevelBase, 212);
QV_LAYOUT(QvSetupBand, StreamMaskA, 214);
QV_LAYOUT(QvSetupBand, StreamMaskB, 216);
QV_LAYOUT(QvSetupBand, StreamMaskC, 218);
QV_LAYOUT(QvSetupBand, Reserved220, 220);
QV_LAYOUT(QvSetupBand, StreamMaskD, 222);
QV_LAYOUT(QvSetupBand, StreamMaskE, 224);
QV_LAYOUT(QvSetupBand, StreamMaskF, 226);
QV_LAYOUT(QvSetupBand, SetupByte180, 228);
QV_LAYOUT(QvSetupBand, Reserved230, 230);
QV_LAYOUT(QvSetupBand, KeptSixValues, 232);
QV_LAYOUT(QvSetupBand, SpectraKind, 256);
QV_LAYOUT(QvSetupBand, Reserved258, 258);
QV_LAYOUT(QvSetupBand, SetupValue127, 260);
QV_LAYOUT(QvSetupBand, SetupText130, 264);
QV_LAYOUT(QvSetupBand, Reserved268, 268);
QV_LAYOUT(QvSetupBand, SetupWord134, 270);
QV_LAYOUT(QvSetupBand, SetupWord136, 272);
QV_LAYOUT(QvSetupBand, SetupByte138, 274);
QV_LAYOUT(QvSetupBand, SetupByte139, 276);
QV_LAYOUT(QvSetupBand, Reserved277, 277);

/**
 * Code 52, from an 'M' item with setup mode 1, every model but 431. Positions are those of the
 * setup block; what a byte stands for is the instrument's own where no name tells it.
 */
typedef struct QvSetupShort {
  uint16_t RecordType;     /* 52 */
  uint16_t SiteNumber;     /* site in force when the record was decoded */
  uint8_t Reserved4[4];    /* zero */
  uint16_t SettingFormat;  /* always 0 */
  uint16_t Model;          /* instrument model: 431, 442 or another number */
  uint16_t SetupHead;      /* position 0 */
  char SetupTag[8];        /* raw text: positions 1 to 8 */
  uint8_t Reserved22[2];   /* zero */
  char SetupTitle[30];     /* raw text: positions 9 to 38 */
  uint8_t Reserved54[2];   /* zero */
  uint16_t SetupMode;      /* position 39 */
  uint16_t SetupByte40;    /* position 40 */
  uint16_t SetupFlagsOut;  /* position 41: flags */
  uint16_t SetupByte74;    /* position 74 */
  uint16_t SetupByte75;    /* position 75 */
  uint16_t SetupByte86;    /* position 86 */
  uint16_t SetupByte87;    /* position 87 */
  uint16_t SetupByte88;    /* position 88 */
  uint16_t SetupByte89;    /* position 89 */
  uint16_t SetupByte90;    /* position 90 */
  uint16_t SetupByte91;    /* position 91 */
  uint16_t SetupByte92;    /* position 92 */
  uint16_t SetupByte145;   /* position 145 */
  uint16_t SetupByte146;   /* position 146 */
  uint16_t SetupByte147;   /* position 147 */
  uint8_t Reserved86[218]; /* zero */
} QvSetupShort;
QV_LAYOUT_SIZE(QvSetupShort, 304);
QV_LAYOUT(QvSetupShort, RecordType, 0);
QV_LAYOUT(QvSetupShort, SiteNumber, 2);
QV_LAYOUT(QvSetupShort, Reserved4, 4);
QV_LAYOUT(QvSetupShort, SettingFormat, 8);
QV_LAYOUT(QvSetupShort, Model, 10);
QV_LAYOUT(QvSetupShort, SetupHead, 12);
QV_LAYOUT(QvSetupShort, SetupTag, 14);
QV_LAYOUT(QvSetupShort, Reserved22, 22);
QV_LAYOUT(QvSetupShort, SetupTitle, 24);
QV_LAYOUT(QvSetupShort, Reserved54, 54);
QV_LAYOUT(QvSetupShort, SetupMode, 56);
QV_LAYOUT(QvSetupShort, SetupByte40, 58);
QV_LAYOUT(QvSetupShort, SetupFlagsOut, 60);
QV_LAYOUT(QvSetupShort, SetupByte74, 62);
QV_LAYOUT(QvSetupShort, SetupByte75, 64);
QV_LAYOUT(QvSetupShort, SetupByte86, 66);
QV_LAYOUT(QvSetupShort, SetupByte87, 68);
QV_LAYOUT(QvSetupShort, SetupByte88, 70);
QV_LAYOUT(QvSetupShort, SetupByte89, 72);
QV_LAYOUT(QvSetupShort, SetupByte90, 74);
QV_LAYOUT(QvSetupShort, SetupByte91, 76);
QV_LAYOUT(QvSetupShort, SetupByte92, 78);
QV_LAYOUT(QvSetupShort, SetupByte145, 80);
QV_LAYOUT(QvSetupShort, SetupByte146, 82);
QV_LAYOUT(QvSetupShort, SetupByte147, 84);
QV_LAYOUT(QvSetupShort, Reserved86, 86);

/**
 * Code 53, from an 'M' item with setup mode 2 or 3, every model but 431. Positions are those of the
 * setup block; what a byte stands for is the instrument's own where no name tells it.
 *
 * The library clears the first 304 bytes; behind them it writes StreamMaskE and SetupByte139
 * always, and StreamMaskD and StreamMaskF at firmware above 2.01; the rest keeps what the host's
 * buffer held.
 */
typedef struct QvSetupLogging {
  uint16_t RecordType;           /* 53 */
  uint16_t SiteNumber;           /* site in force when the record was decoded */
  uint8_t Reserved4[4];          /* zero */
  uint16_t SettingFormat;        /* always 0 */
  uint16_t Model;                /* instrument model: 431, 442 or another number */
  uint16_t SetupHead;            /* position 0 */
  char SetupTag[8];              /* raw text: positions 1 to 8 */
  uint8_t Reserved22[2];         /* zero */
  char SetupTitle[30];           /* raw text: positions 9 to 38 */
  uint8_t Reserved54[2];         /* zero */
  uint16_t SetupMode;            /* position 39 */
  uint16_t SetupByte40;          /* position 40 */
  uint16_t SetupFlagsOut;        /* position 41: flags */
  uint16_t FlagsA;               /* position 42 */
  uint16_t SetupByte46;          /* position 46 */
  uint16_t FlagsB;               /* position 47 */
  uint16_t FlagsC;               /* position 48 */
  uint16_t FlagsD;               /* position 49 */
  uint16_t SetupByte56;          /* position 56 */
  char DateA[12];                /* text: positions 57 to 59 */
  char DateB[12];                /* text: positions 60 to 62 */
  char TimeA[6];                 /* text: positions 63 to 64 */
  char TimeB[6];                 /* text: positions 65 to 66 */
  char TimeC[6];                 /* text: positions 67 to 68 */
  char TimeD[6];                 /* text: positions 69 to 70 */
  char ClockA[10];               /* text: positions 71 to 73 */
  uint16_t SetupByte74;          /* position 74 */
  uint16_t SetupByte75;          /* position 75 */
  uint16_t SetupByte76;          /* position 76 */
  uint16_t SetupByte77;          /* position 77 */
  uint16_t SetupByte78;          /* position 78 */
  uint16_t SetupByte79;          /* position 79 */
  uint16_t SetupByte80;          /* position 80 */
  uint16_t SetupByte81;          /* position 81 */
  uint16_t SetupByte82;          /* position 82 */
  uint16_t SetupByte83;          /* position 83 */
  float SetupLevel84;            /* level: positions 84 to 85 */
  uint16_t SetupByte86;          /* position 86 */
  uint16_t SetupByte87;          /* position 87 */
  uint16_t SetupByte89;          /* position 89 */
  uint16_t SetupByte90;          /* position 90 */
  uint16_t SetupByte91;          /* position 91 */
  uint16_t SetupByte92;          /* position 92 */
  uint16_t SetupByte98;          /* position 98 */
  uint16_t SetupByte99;          /* position 99 */
  char ClockB[12];               /* text: positions 100 to 102 */
  float KeptSixValues[6];        /* positions 110 to 121 */
  float SetupValue122;           /* positions 122 to 123 */
  uint16_t SetupByte124;         /* position 124 */
  uint16_t SetupByte125;         /* position 125 */
  uint16_t SetupByte126;         /* position 126 */
  uint8_t Reserved218[2];        /* zero */
  float SetupValue127;           /* positions 127 to 129 */
  char SetupText130[4];          /* raw text: positions 130 to 133 */
  uint8_t Reserved228[2];        /* zero */
  uint16_t SetupWord134;         /* positions 134 to 135 */
  uint16_t SetupWord136;         /* positions 136 to 137 */
  uint16_t SetupWord138;         /* positions 138 to 139; from firmware 3.6 on position 138 alone */
  uint16_t StreamSelector;       /* position 140 */
  uint16_t PeriodValue;          /* position 141 */
  uint16_t PeriodUnit;           /* position 142 */
  uint16_t SetupByte145;         /* position 145 */
  uint16_t SetupByte146;         /* position 146 */
  uint16_t SetupByte147;         /* position 147 */
  uint16_t SetupByte148;         /* position 148 */
  uint16_t SetupByte153;         /* position 153 */
  uint16_t SetupByte154;         /* position 154 */
  uint16_t SetupByte155;         /* position 155 */
  uint16_t SetupByte156;         /* position 156 */
  uint16_t SetupByte157;         /* position 157 */
  uint16_t SetupByte158;         /* position 158 */
  uint16_t SetupByte159;         /* position 159 */
  uint16_t SetupByte160;         /* position 160 */
  uint16_t SetupByte161;         /* position 161 */
  uint16_t SetupByte162;         /* position 162 */
  uint16_t SetupByte163;         /* position 163 */
  uint16_t SetupByte164;         /* position 164 */
  uint16_t SetupByte165;         /* position 165 */
  uint16_t SetupByte166;         /* position 166 */
  uint16_t SetupByte167;         /* position 167 */
  uint16_t SetupByte173;         /* position 173 */
  uint16_t SetupByte174;         /* position 174 */
  uint16_t IntervalSamplePeriod; /* position 176 */
  char ClockC[6];                /* text: positions 177 to 178 */
  uint16_t SetupByte179;         /* position 179 */
  uint16_t SetupByte180;         /* position 180 */
  uint16_t StreamLevelBase;      /* position 181 */
  uint16_t StreamMaskA;          /* position 182 */
  uint16_t StreamMaskB;          /* position 184; position 183 at firmware 2.01 or below */
  uint16_t StreamMaskC;          /* position 186; position 184 at firmware 2.01 or below */
  uint8_t Unwritten304[2];       /* not written */
  uint16_t StreamMaskD;          /* position 183; from firmware above 2.01 on */
  uint16_t StreamMaskE;          /* position 185 */
  uint16_t StreamMaskF;          /* position 187; from firmware above 2.01 on */
  uint8_t SetupByte139;          /* position 139; from firmware 3.6 on */
  uint8_t Unwritten313[3];       /* not written */
} QvSetupLogging;
QV_LAYOUT_SIZE(QvSetupLogging, 316);
QV_LAYOUT(QvSetupLogging, RecordType, 0);
QV_LAYOUT(QvSetupLogging, SiteNumber, 2);
QV_LAYOUT(QvSetupLogging, Reserved4, 4);
QV_LAYOUT(QvSetupLogging, SettingFormat, 8);
QV_LAYOUT(QvSetupLogging, Model, 10);
QV_LAYOUT(QvSetupLogging, SetupHead, 12);
QV_LAYOUT(QvSetupLogging, SetupTag, 14);
QV_LAYOUT(QvSetupLogging, Reserved22, 22);
QV_LAYOUT(QvSetupLogging, SetupTitle, 24);
QV_LAYOUT(QvSetupLogging, Reserved54, 54);
QV_LAYOUT(QvSetupLogging, SetupMode, 56);
QV_LAYOUT(QvSetupLogging, SetupByte40, 58);
QV_LAYOUT(QvSetupLogging, SetupFlagsOut, 60);
QV_LAYOUT(QvSetupLogging, FlagsA, 62);
QV_LAYOUT(QvSetupLogging, SetupByte46, 64);
QV_LAYOUT(QvSetupLogging, FlagsB, 66);
QV_LAYOUT(QvSetupLogging, FlagsC, 68);
QV_LAYOUT(QvSetupLogging, FlagsD, 70);
QV_LAYOUT(QvSetupLogging, SetupByte56, 72);
QV_LAYOUT(QvSetupLogging, DateA, 74);
QV_LAYOUT(QvSetupLogging, DateB, 86);
QV_LAYOUT(QvSetupLogging, TimeA, 98);
QV_LAYOUT(QvSetupLogging, TimeB, 104);
QV_LAYOUT(QvSetupLogging, TimeC, 110);
QV_LAYOUT(QvSetupLogging, TimeD, 116);
QV_LAYOUT(QvSetupLogging, ClockA, 122);
QV_LAYOUT(QvSetupLogging, SetupByte74, 132);
QV_LAYOUT(QvSetupLogging, SetupByte75, 134);
QV_LAYOUT(QvSetupLogging, SetupByte76, 136);
QV_LAYOUT(QvSetupLogging, SetupByte77, 138);
QV_LAYOUT(QvSetupLogging, SetupByte78, 140);
QV_LAYOUT(QvSetupLogging, SetupByte79, 142);
QV_LAYOUT(QvSetupLogging, SetupByte80, 144);
QV_LAYOUT(QvSetupLogging, SetupByte81, 146);
QV_LAYOUT(QvSetupLogging, SetupByte82, 148);
QV_LAYOUT(QvSetupLogging, SetupByte83, 150);
QV_LAYOUT(QvSetupLogging, SetupLevel84, 152);
QV_LAYOUT(QvSetupLogging, SetupByte86, 156);
QV_LAYOUT(QvSetupLogging, SetupByte87, 158);
QV_LAYOUT(QvSetupLogging, SetupByte89, 160);
QV_LAYOUT(QvSetupLogging, SetupByte90, 162);
QV_LAYOUT(QvSetupLogging, SetupByte91, 164);
QV_LAYOUT(QvSetupLogging, SetupByte92, 166);
QV_LAYOUT(QvSetupLogging, SetupByte98, 168);
QV_LAYOUT(QvSetupLogging, SetupByte99, 170);
QV_LAYOUT(QvSetupLogging, ClockB, 172);
QV_LAYOUT(QvSetupLogging, KeptSixValues, 184);
QV_LAYOUT(QvSetupLogging, SetupValue122, 208);
QV_LAYOUT(QvSetupLogging, SetupByte124, 212);
QV_LAYOUT(QvSetupLogging, SetupByte125, 214);
QV_LAYOUT(QvSetupLogging, SetupByte126, 216);
QV_LAYOUT(QvSetupLogging, Reserved218, 218);
QV_LAYOUT(QvSetupLogging, SetupValue127, 220);
QV_LAYOUT(QvSetupLogging, SetupText130, 224);
QV_LAYOUT(QvSetupLogging, Reserved228, 228);
QV_LAYOUT(QvSetupLogging, SetupWord134, 230);
QV_LAYOUT(QvSetupLogging, SetupWord136, 232);
QV_LAYOUT(QvSetupLogging, SetupWord138, 234);
QV_LAYOUT(QvSetupLogging, StreamSelector, 236);
QV_LAYOUT(QvSetupLogging, PeriodValue, 238);
QV_LAYOUT(QvSetupLogging, PeriodUnit, 240);
QV_LAYOUT(QvSetupLogging, SetupByte145, 242);
QV_LAYOUT(QvSetupLogging, SetupByte146, 244);
QV_LAYOUT(QvSetupLogging, SetupByte147, 246);
QV_LAYOUT(QvSetupLogging, SetupByte148, 248);
QV_LAYOUT(QvSetupLogging, SetupByte153, 250);
QV_LAYOUT(QvSetupLogging, SetupByte154, 252);
QV_LAYOUT(QvSetupLogging, SetupByte155, 254);
QV_LAYOUT(QvSetupLogging, SetupByte156, 256);
QV_LAYOUT(QvSetupLogging, SetupByte157, 258);
QV_LAYOUT(QvSetupLogging, SetupByte158, 260);
QV_LAYOUT(QvSetupLogging, SetupByte159, 262);
QV_LAYOUT(QvSetupLogging, SetupByte160, 264);
QV_LAYOUT(QvSetupLogging, SetupByte161, 266);
QV_LAYOUT(QvSetupLogging, SetupByte162, 268);
QV_LAYOUT(QvSetupLogging, SetupByte163, 270);
QV_LAYOUT(QvSetupLogging, SetupByte164, 272);
QV_LAYOUT(QvSetupLogging, SetupByte165, 274);
QV_LAYOUT(QvSetupLogging, SetupByte166, 276);
QV_LAYOUT(QvSetupLogging, SetupByte167, 278);
QV_LAYOUT(QvSetupLogging, SetupByte173, 280);
QV_LAYOUT(QvSetupLogging, SetupByte174, 282);
QV_LAYOUT(QvSetupLogging, IntervalSamplePeriod, 284);
QV_LAYOUT(QvSetupLogging, ClockC, 286);
QV_LAYOUT(QvSetupLogging, SetupByte179, 292);
QV_LAYOUT(QvSetupLogging, SetupByte180, 294);
QV_LAYOUT(QvSetupLogging, StreamLevelBase, 296);
QV_LAYOUT(QvSetupLogging, StreamMaskA, 298);
QV_LAYOUT(QvSetupLogging, StreamMaskB, 300);
QV_LAYOUT(QvSetupLogging, StreamMaskC, 302);
QV_LAYOUT(QvSetupLogging, Unwritten304, 304);
QV_LAYOUT(QvSetupLogging, StreamMaskD, 306);
QV_LAYOUT(QvSetupLogging, StreamMaskE, 308);
QV_LAYOUT(QvSetupLogging, StreamMaskF, 310);
QV_LAYOUT(QvSetupLogging, SetupByte139, 312);
QV_LAYOUT(QvSetupLogging, Unwritten313, 313);

/**
 * Code 54, from an 'S' item of every model but 431: a site. Positions are those of the item's body.
 * SiteNumber is the number before this item, NewSiteNumber the one that later records carry.
 */
typedef struct QvSite {
  uint16_t RecordType;    /* 54 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  uint8_t Reserved4[4];   /* zero */
  uint16_t SettingFormat; /* always 0 */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint16_t SiteByte0;     /* position 0 */
  uint16_t SiteByte1;     /* position 1 */
  uint16_t SiteByte2;     /* position 2 */
  uint16_t SiteByte3;     /* position 3 */
  uint16_t SiteByte4;     /* position 4 */
  uint16_t SiteByte7;     /* position 7 */
  uint16_t SiteByte8;     /* position 8 */
  char SiteText9[5];      /* raw text: positions 9 to 13 */
  uint8_t Reserved31[1];  /* zero */
  char SiteText14[4];     /* raw text: positions 14 to 17 */
  uint16_t SiteByte18;    /* position 18 */
  char SiteText19[30];    /* raw text: positions 19 to 48 */
  uint8_t Reserved68[2];  /* zero */
  char SiteText49[30];    /* raw text: positions 49 to 78 */
  uint8_t Reserved100[2]; /* zero */
  char SiteText79[30];    /* raw text: positions 79 to 108 */
  uint8_t Reserved132[2]; /* zero */
  uint16_t SiteByte109;   /* position 109 */
  uint8_t SiteByte110;    /* position 110 */
  uint8_t Reserved137[1]; /* zero */
  uint16_t SiteByte111;   /* position 111 */
  uint16_t SiteByte112;   /* position 112 */
  uint16_t SiteByte113;   /* position 113 */
  uint16_t SiteByte114;   /* position 114 */
  uint16_t SiteByte115;   /* position 115 */
  uint16_t SiteByte116;   /* position 116 */
  uint16_t SiteByte117;   /* position 117 */
  uint16_t SiteByte118;   /* position 118 */
  uint16_t SiteByte119;   /* position 119 */
  uint16_t SiteByte120;   /* position 120 */
  char SiteText121[30];   /* raw text: positions 121 to 150 */
  uint8_t Reserved188[2]; /* zero */
  uint16_t NewSiteNumber; /* position 151 */
  char SiteText152[30];   /* raw text: positions 152 to 181 */
  uint8_t Reserved222[2]; /* zero */
  char SiteText182[8];    /* raw text: positions 182 to 189 */
  uint8_t Reserved232[2]; /* zero */
  uint16_t SiteByte190;   /* position 190 */
  uint16_t SiteByte191;   /* position 191 */
  uint16_t SiteByte192;   /* position 192 */
  uint16_t SiteByte193;   /* position 193 */
  uint16_t SiteByte194;   /* position 194 */
  uint16_t SiteByte195;   /* position 195 */
  uint16_t SiteByte196;   /* position 196 */
  uint16_t SiteByte197;   /* position 197 */
  uint8_t Reserved250[2]; /* zero */
  float SiteValue198;     /* positions 198 to 199 */
  char SiteText200[8];    /* raw text: positions 200 to 207 */
  uint8_t Reserved264[2]; /* zero */
  uint16_t SiteByte208;   /* position 208 */
  uint16_t SiteByte209;   /* position 209 */
  char SiteClock210[6];   /* text: positions 210 to 211 */
  float SiteValue212;     /* positions 212 to 213 */
  char SiteText214[4];    /* raw text: positions 214 to 217 */
  uint8_t Reserved284[4]; /* zero */
} QvSite;
QV_LAYOUT_SIZE(QvSite, 288);
QV_LAYOUT(QvSite, RecordType, 0);
QV_LAYOUT(QvSite, SiteNumber, 2);
QV_LAYOUT(QvSite, Reserved4, 4);
QV_LAYOUT(QvSite, SettingFormat, 8);
QV_LAYOUT(QvSite, Model, 10);
QV_LAYOUT(QvSite, SiteByte0, 12);
QV_LAYOUT(QvSite, SiteByte1, 14);
QV_LAYOUT(QvSite, SiteByte2, 16);
QV_LAYOUT(QvSite, SiteByte3, 18);
QV_LAYOUT(QvSite, SiteByte4, 20);
QV_LAYOUT(QvSite, SiteByte7, 22);
QV_LAYOUT(QvSite, SiteByte8, 24);
QV_LAYOUT(QvSite, SiteText9, 26);
QV_LAYOUT(QvSite, Reserved31, 31);
QV_LAYOUT(QvSite, SiteText14, 32);
QV_LAYOUT(QvSite, SiteByte18, 36);
QV_LAYOUT(QvSite, SiteText19, 38);
QV_LAYOUT(QvSite, Reserved68, 68);
QV_LAYOUT(QvSite, SiteText49, 70);
QV_LAYOUT(QvSite, Reserved100, 100);
QV_LAYOUT(QvSite, SiteText79, 102);
QV_LAYOUT(QvSite, Reserved132, 132);
QV_LAYOUT(QvSite, SiteByte109, 134);
QV_LAYOUT(QvSite, SiteByte110, 136);
QV_LAYOUT(QvSite, Reserved137, 137);
QV_LAYOUT(QvSite, SiteByte111, 138);
QV_LAYOUT(QvSite, SiteByte112, 140);
QV_LAYOUT(QvSite, SiteByte113, 142);
QV_LAYOUT(QvSite, SiteByte114, 144);
QV_LAYOUT(QvSite, SiteByte115, 146);
QV_LAYOUT(QvSite, SiteByte116, 148);
QV_LAYOUT(QvSite, SiteByte117, 150);
QV_LAYOUT(QvSite, SiteByte118, 152);
QV_LAYOUT(QvSite, SiteByte119, 154);
QV_LAYOUT(QvSite, SiteByte120, 156);
QV_LAYOUT(QvSite, SiteText121, 158);
QV_LAYOUT(QvSite, Reserved188, 188);
QV_LAYOUT(QvSite, NewSiteNumber, 190);
QV_LAYOUT(QvSite, SiteText152, 192);
QV_LAYOUT(QvSite, Reserved222, 222);
QV_LAYOUT(QvSite, SiteText182, 224);
QV_LAYOUT(QvSite, Reserved232, 232);
QV_LAYOUT(QvSite, SiteByte190, 234);
QV_LAYOUT(QvSite, SiteByte191, 236);
QV_LAYOUT(QvSite, SiteByte192, 238);
QV_LAYOUT(QvSite, SiteByte193, 240);
QV_LAYOUT(QvSite, SiteByte194, 242);
QV_LAYOUT(QvSite, SiteByte195, 244);
QV_LAYOUT(QvSite, SiteByte196, 246);
QV_LAYOUT(QvSite, SiteByte197, 248);
QV_LAYOUT(QvSite, Reserved250, 250);
QV_LAYOUT(QvSite, SiteValue198, 252);
QV_LAYOUT(QvSite, SiteText200, 256);
QV_LAYOUT(QvSite, Reserved264, 264);
QV_LAYOUT(QvSite, SiteByte208, 266);
QV_LAYOUT(QvSite, SiteByte209, 268);
QV_LAYOUT(QvSite, SiteClock210, 270);
QV_LAYOUT(QvSite, SiteValue212, 276);
QV_LAYOUT(QvSite, SiteText214, 280);
QV_LAYOUT(QvSite, Reserved284, 284);

/**
 * Code 55, from an 'R' item of model 442: the stored results of a run, by register, with settings
 * kept from the blocks before it. Registers that the file did not give are zero, texts empty. R170
 * changes the text of R86 when the text of R87 holds an E.
 *
 * ResultFlags: 0x0002 register Q209 was not 0; 0x0004 auxiliary channels in intervals or summaries;
 * 0x0008 spans in intervals, summaries and days; 0x0010 the second auxiliary channel is enabled;
 * 0x0040 register Q120 and 0x0080 register Q118 switched on the hourly counters; 0x0200 one of R38
 * to R43 stands in the block.
 */
typedef struct QvResults442 {
  uint16_t RecordType;    /* 55 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  int32_t StopTime;       /* time: of the last stop, register R6 */
  uint16_t SettingFormat; /* always 0 */
  uint16_t ResultFlags;   /* bits, see above */
  float SettingR72;       /* register R72 */
  float SettingR77;       /* register R77 */
  float SettingR82;       /* register R82 */
  int32_t SettingR75;     /* register R75 */
  int32_t SettingR80;     /* register R80 */
  int32_t SettingR85;     /* register R85 */
  float SettingR73;       /* register R73 */
  float SettingR78;       /* register R78 */
  float SettingR83;       /* register R83 */
  float SettingR74;       /* register R74 */
  float SettingR79;       /* register R79 */
  float SettingR84;       /* register R84 */
  char AuxName0[10];      /* text: name of auxiliary channel 0 */
  char AuxName1[10];      /* text: name of auxiliary channel 1 */
  char AuxName2[10];      /* text: name of auxiliary channel 2 */
  char AuxUnits0[6];      /* text: units of auxiliary channel 0 */
  char AuxUnits1[6];      /* text: units of auxiliary channel 1 */
  char AuxUnits2[6];      /* text: units of auxiliary channel 2 */
  float SettingR70;       /* register R70 */
  float SettingR156;      /* s: register R156 */
  char SettingR86[8];     /* text: register R86 */
  char SettingR87[4];     /* text: register R87 */
  int32_t SettingR104;    /* time: register R104 */
  float SettingR107;      /* register R107 */
  int32_t SettingR105;    /* time: register R105 */
  float SettingR106;      /* register R106 */
  uint16_t SettingQ47;    /* register Q47, or kept from a setup */
  uint8_t Reserved146[2]; /* zero */
  float SettingR45;       /* register R45 */
  float SettingR21[9];    /* register R21 */
  int32_t SettingR22[9];  /* time: register R22 */
  float SettingR17[9];    /* register R17 */
  int32_t SettingR18[9];  /* time: register R18 */
  float SettingR25[3];    /* register R25 */
  int32_t SettingR26[3];  /* time: register R26 */
  float SettingR47;       /* register R47 */
  float SettingR7;        /* s: register R7 */
  float SettingR14[3];    /* register R14 */
  float SettingR4[9];     /* register R4 */
  int32_t SettingR8;      /* time: register R8 */
  uint16_t SetupKeptB;    /* register Q46, or kept from a setup */
  uint8_t Reserved382[2]; /* zero */
  float SettingR11[3];    /* register R11 */
  char SettingR12[8];     /* text: register R12 */
  float SettingR29[3];    /* register R29 */
  int32_t SettingR30[3];  /* time: register R30 */
  uint8_t SettingR98[8];  /* register R98 */
  uint8_t Reserved436[4]; /* zero */
  float SettingR68;       /* register R68 */
  float SettingR69;       /* s: register R69 */
  float SettingR90;       /* register R90 */
  int32_t SettingR91;     /* register R91 */
  float SettingR60[24];   /* register R60 */
  int32_t SettingR179;    /* register R179 */
  char SettingR180[6];    /* text: register R180 */
  uint16_t SettingQ54;    /* register Q54 */
  float SettingR48;       /* the last number before register R48, not its own */
  int32_t SettingR53;     /* 1 when the line holds an n: register R53 */
  float SettingR49;       /* register R49 */
  float SettingR51;       /* the last number before register R51, not its own */
  uint16_t SettingQ53;    /* register Q53 */
  uint8_t Reserved582[2]; /* zero */
  float SettingR50;       /* the last number before register R50, not its own */
  char SettingR52[8];     /* text: register R52 */
  float SettingR38;       /* register R38 */
  float SettingR39;       /* register R39 */
  float SettingR40;       /* register R40 */
  float SettingR41;       /* register R41 */
  float SettingR42;       /* register R42 */
  float SettingR43;       /* register R43 */
  uint16_t Model;         /* instrument model: 442 or another number */
  uint8_t Reserved622[2]; /* zero */
  float
      KeptSixValues[6]; /* registers Q55 to Q60, or kept from a setup; zero when there were none */
  float SettingR65;     /* register R65 */
  uint16_t SettingQ50;  /* register Q50, or kept from a setup */
  uint8_t Reserved654[2];       /* zero */
  float SettingR44;             /* register R44 */
  int32_t SettingR175;          /* time: register R175 */
  float SettingR62;             /* register R62 */
  float SettingR57;             /* register R57 */
  float SettingR19[9];          /* register R19 */
  int32_t SettingR20[9];        /* time: register R20 */
  float SettingR15[9];          /* register R15 */
  int32_t SettingR16[9];        /* time: register R16 */
  float SettingR23[3];          /* register R23 */
  int32_t SettingR24[3];        /* time: register R24 */
  float SettingR46;             /* register R46 */
  float SettingR5;              /* s: register R5 */
  float SettingR13[3];          /* register R13 */
  int32_t SettingR6;            /* time: register R6 */
  uint16_t SetupKeptA;          /* register Q49, or kept from a setup */
  uint8_t Reserved866[2];       /* zero */
  float SettingR9[3];           /* register R9 */
  char SettingR10[8];           /* text: register R10 */
  float SettingR27[3];          /* register R27 */
  int32_t SettingR28[3];        /* time: register R28 */
  int32_t SettingR35;           /* register R35 */
  int32_t SettingR36;           /* register R36 */
  float SettingR37;             /* s: register R37 */
  int32_t SettingR33;           /* register R33 */
  char SettingR151[4];          /* text: register R151 */
  int32_t SettingR97;           /* register R97 */
  int32_t SettingR96;           /* register R96 */
  int32_t SettingR181;          /* register R181 */
  int32_t SettingR93;           /* register R93 */
  int32_t SettingR95;           /* register R95 */
  int32_t SettingR94;           /* register R94 */
  int32_t SettingR161;          /* register R161 */
  int32_t SettingR92;           /* register R92 */
  int32_t SettingR31;           /* register R31 */
  int32_t SettingR32;           /* register R32 */
  float SettingR139;            /* s: register R139 */
  float SettingR172[34];        /* level: third-octave bands, register R172 or R210 */
  float SettingR172Octaves[12]; /* level: octave bands of SettingR172 */
  float SettingR211;            /* register R211 */
  char SettingR212[5];          /* text: register R212 */
  uint8_t Reserved1169[3];      /* zero */
  float SettingR171[34];        /* level: third-octave bands, register R171 or R207 */
  float SettingR171Octaves[12]; /* level: octave bands of SettingR171 */
  float SettingR208;            /* register R208 */
  char SettingR209[5];          /* text: register R209 */
  uint8_t Reserved1365[3];      /* zero */
  float SettingR188[34];        /* level: third-octave bands, register R188 or R213 */
  float SettingR188Octaves[12]; /* level: octave bands of SettingR188 */
  float SettingR206[34];        /* level: third-octave bands, register R206 or R214 */
  float SettingR206Octaves[12]; /* level: octave bands of SettingR206 */
  float SettingR173[34];        /* level: third-octave bands, register R173 */
  float SettingR173Octaves[12]; /* level: octave bands of SettingR173 */
  uint16_t SettingR216;         /* register R216 */
  uint8_t Reserved1922[2];      /* zero */
  float SettingR221[34];        /* level: third-octave bands, register R221 */
  float SettingR221Octaves[12]; /* level: octave bands of SettingR221 */
  float SettingR222[34];        /* level: third-octave bands, register R222 */
  float SettingR222Octaves[12]; /* level: octave bands of SettingR222 */
  uint16_t SettingR224;         /* register R224 */
  char SettingR225[6];          /* text: register R225 */
  float SettingR223;            /* register R223 */
  float SettingR219[34];        /* level: third-octave bands, register R219 */
  float SettingR219Octaves[12]; /* level: octave bands of SettingR219 */
  float SettingR220;            /* register R220 */
  int32_t SettingR217;          /* register R217 */
  char SettingR218[7][22];      /* text: register R218 */
  char SettingR215[6];          /* text: register R215 */
  int32_t SettingR150;          /* register R150 */
  char SettingR89[8];           /* text: register R89 */
  float SettingR162;            /* register R162 */
  float SettingR234[33];        /* register R234 */
  float SettingR235[33];        /* register R235 */
  float SettingR236[33];        /* register R236 */
  float SettingR237[33];        /* register R237 */
  float SettingR238[33];        /* register R238 */
  float SettingR239[33];        /* register R239 */
  float SettingR240[6];         /* register R240 */
  char SettingR3[51];           /* text: register R3 */
  uint8_t Reserved3539[1];      /* zero */
  float SettingR163[9];         /* register R163 */
  float SettingR164[9];         /* register R164 */
  float SettingR88;             /* register R88 */
  int32_t SettingR158;          /* register R158 */
  int32_t SettingR34;           /* register R34 */
  float SettingR118;            /* register R118 */
  int32_t SettingR124[8];       /* register R124 */
  float SettingR119;            /* register R119 */
  uint16_t SettingR120;         /* point of the compass, 0 for N, clockwise to 15: register R120 */
  uint8_t Reserved3666[2];      /* zero */
  int32_t SettingR121;          /* time: register R121 */
  uint16_t ModeFormFlag;        /* register Q146, or 1 or 0 by the form of the setup */
  uint8_t Reserved3674[2];      /* zero */
  float SettingR123;            /* register R123 */
  int32_t SettingR122;          /* register R122 */
  int32_t SettingR227;          /* register R227 */
  int32_t SettingR228;          /* register R228 */
  float SettingR229;            /* register R229 */
  float SettingR230;            /* register R230 */
  float SettingR232;            /* register R232 */
  float SettingR233;            /* s: register R233 */
  float SettingR203[401];       /* register R203 */
  int32_t SettingR176;          /* time: register R176 */
} QvResults442;
QV_LAYOUT_SIZE(QvResults442, 5316);
QV_LAYOUT(QvResults442, RecordType, 0);
QV_LAYOUT(QvResults442, SiteNumber, 2);
QV_LAYOUT(QvResults442, StopTime, 4);
QV_LAYOUT(QvResults442, SettingFormat, 8);
QV_LAYOUT(QvResults442, ResultFlags, 10);
QV_LAYOUT(QvResults442, SettingR72, 12);
QV_LAYOUT(QvResults442, SettingR77, 16);
QV_LAYOUT(QvResults442, SettingR82, 20);
QV_LAYOUT(QvResults442, SettingR75, 24);
QV_LAYOUT(QvResults442, SettingR80, 28);
QV_LAYOUT(QvResults442, SettingR85, 32);
QV_LAYOUT(QvResults442, SettingR73, 36);
QV_LAYOUT(QvResults442, SettingR78, 40);
QV_LAYOUT(QvResults442, SettingR83, 44);
QV_LAYOUT(QvResults442, SettingR74, 48);
QV_LAYOUT(QvResults442, SettingR79, 52);
QV_LAYOUT(QvResults442, SettingR84, 56);
QV_LAYOUT(QvResults442, AuxName0, 60);
QV_LAYOUT(QvResults442, AuxName1, 70);
QV_LAYOUT(QvResults442, AuxName2, 80);
QV_LAYOUT(QvResults442, AuxUnits0, 90);
QV_LAYOUT(QvResults442, AuxUnits1, 96);
QV_LAYOUT(QvResults442, AuxUnits2, 102);
QV_LAYOUT(QvResults442, SettingR70, 108);
QV_LAYOUT(QvResults442, SettingR156, 112);
QV_LAYOUT(QvResults442, SettingR86, 116);
QV_LAYOUT(QvResults442, SettingR87, 124);
QV_LAYOUT(QvResults442, SettingR104, 128);
QV_LAYOUT(QvResults442, SettingR107, 132);
QV_LAYOUT(QvResults442, SettingR105, 136);
QV_LAYOUT(QvResults442, SettingR106, 140);
QV_LAYOUT(QvResults442, SettingQ47, 144);
QV_LAYOUT(QvResults442, Reserved146, 146);
QV_LAYOUT(QvResults442, SettingR45, 148);
QV_LAYOUT(QvResults442, SettingR21, 152);
QV_LAYOUT(QvResults442, SettingR22, 188);
QV_LAYOUT(QvResults442, SettingR17, 224);
QV_LAYOUT(QvResults442, SettingR18, 260);
QV_LAYOUT(QvResults442, SettingR25, 296);
QV_LAYOUT(QvResults442, SettingR26, 308);
QV_LAYOUT(QvResults442, SettingR47, 320);
QV_LAYOUT(QvResults442, SettingR7, 324);
QV_LAYOUT(QvResults442, SettingR14, 328);
QV_LAYOUT(QvResults442, SettingR4, 340);
QV_LAYOUT(QvResults442, SettingR8, 376);
QV_LAYOUT(QvResults442, SetupKeptB, 380);
QV_LAYOUT(QvResults442, Reserved382, 382);
QV_LAYOUT(QvResults442, SettingR11, 384);
QV_LAYOUT(QvResults442, SettingR12, 396);
QV_LAYOUT(QvResults442, SettingR29, 404);
QV_LAYOUT(QvResults442, SettingR30, 416);
QV_LAYOUT(QvResults442, SettingR98, 428);
QV_LAYOUT(QvResults442, Reserved436, 436);
QV_LAYOUT(QvResults442, SettingR68, 440);
QV_LAYOUT(QvResults442, SettingR69, 444);
QV_LAYOUT(QvResults442, SettingR90, 448);
QV_LAYOUT(QvResults442, SettingR91, 452);
QV_LAYOUT(QvResults442, SettingR60, 456);
QV_LAYOUT(QvResults442, SettingR179, 552);
QV_LAYOUT(QvResults442, SettingR180, 556);
QV_LAYOUT(QvResults442, SettingQ54, 562);
QV_LAYOUT(QvResults442, SettingR48, 564);
QV_LAYOUT(QvResults442, SettingR53, 568);
QV_LAYOUT(QvResults442, SettingR49, 572);
QV_LAYOUT(QvResults442, SettingR51, 576);
QV_LAYOUT(QvResults442, SettingQ53, 580);
QV_LAYOUT(QvResults442, Reserved582, 582);
QV_LAYOUT(QvResults442, SettingR50, 584);
QV_LAYOUT(QvResults442, SettingR52, 588);
QV_LAYOUT(QvResults442, SettingR38, 596);
QV_LAYOUT(QvResults442, SettingR39, 600);
QV_LAYOUT(QvResults442, SettingR40, 604);
QV_LAYOUT(QvResults442, SettingR41, 608);
QV_LAYOUT(QvResults442, SettingR42, 612);
QV_LAYOUT(QvResults442, SettingR43, 616);
QV_LAYOUT(QvResults442, Model, 620);
QV_LAYOUT(QvResults442, Reserved622, 622);
QV_LAYOUT(QvResults442, KeptSixValues, 624);
QV_LAYOUT(QvResults442, SettingR65, 648);
QV_LAYOUT(QvResults442, SettingQ50, 652);
QV_LAYOUT(QvResults442, Reserved654, 654);
QV_LAYOUT(QvResults442, SettingR44, 656);
QV_LAYOUT(QvResults442, SettingR175, 660);
QV_LAYOUT(QvResults442, SettingR62, 664);
QV_LAYOUT(QvResults442, SettingR57, 668);
QV_LAYOUT(QvResults442, SettingR19, 672);
QV_LAYOUT(QvResults442, SettingR20, 708);
QV_LAYOUT(QvResults442, SettingR15, 744);
QV_LAYOUT(QvResults442, SettingR16, 780);
QV_LAYOUT(QvResults442, SettingR23, 816);
QV_LAYOUT(QvResults442, SettingR24, 828);
QV_LAYOUT(QvResults442, SettingR46, 840);
QV_LAYOUT(QvResults442, SettingR5, 844);
QV_LAYOUT(QvResults442, SettingR13, 848);
QV_LAYOUT(QvResults442, SettingR6, 860);
QV_LAYOUT(QvResults442, SetupKeptA, 864);
QV_LAYOUT(QvResults442, Reserved866, 866);
QV_LAYOUT(QvResults442, SettingR9, 868);
QV_LAYOUT(QvResults442, SettingR10, 880);
QV_LAYOUT(QvResults442, SettingR27, 888);
QV_LAYOUT(QvResults442, SettingR28, 900);
QV_LAYOUT(QvResults442, SettingR35, 912);
QV_LAYOUT(QvResults442, SettingR36, 916);
QV_LAYOUT(QvResults442, SettingR37, 920);
QV_LAYOUT(QvResults442, SettingR33, 924);
QV_LAYOUT(QvResults442, SettingR151, 928);
QV_LAYOUT(QvResults442, SettingR97, 932);
QV_LAYOUT(QvResults442, SettingR96, 936);
QV_LAYOUT(QvResults442, SettingR181, 940);
QV_LAYOUT(QvResults442, SettingR93, 944);
QV_LAYOUT(QvResults442, SettingR95, 948);
QV_LAYOUT(QvResults442, SettingR94, 952);
QV_LAYOUT(QvResults442, SettingR161, 956);
QV_LAYOUT(QvResults442, SettingR92, 960);
QV_LAYOUT(QvResults442, SettingR31, 964);
QV_LAYOUT(QvResults442, SettingR32, 968);
QV_LAYOUT(QvResults442, SettingR139, 972);
QV_LAYOUT(QvResults442, SettingR172, 976);
QV_LAYOUT(QvResults442, SettingR172Octaves, 1112);
QV_LAYOUT(QvResults442, SettingR211, 1160);
QV_LAYOUT(QvResults442, SettingR212, 1164);
QV_LAYOUT(QvResults442, Reserved1169, 1169);
QV_LAYOUT(QvResults442, SettingR171, 1172);
QV_LAYOUT(QvResults442, SettingR171Octaves, 1308);
QV_LAYOUT(QvResults442, SettingR208, 1356);
QV_LAYOUT(QvResults442, SettingR209, 1360);
QV_LAYOUT(QvResults442, Reserved1365, 1365);
QV_LAYOUT(QvResults442, SettingR188, 1368);
QV_LAYOUT(QvResults442, SettingR188Octaves, 1504);
QV_LAYOUT(QvResults442, SettingR206, 1552);
QV_LAYOUT(QvResults442, SettingR206Octaves, 1688);
QV_LAYOUT(QvResults442, SettingR173, 1736);
QV_LAYOUT(QvResults442, SettingR173Octaves, 1872);
QV_LAYOUT(QvResults442, SettingR216, 1920);
QV_LAYOUT(QvResults442, Reserved1922, 1922);
QV_LAYOUT(QvResults442, SettingR221, 1924);
QV_LAYOUT(QvResults442, SettingR221Octaves, 2060);
QV_LAYOUT(QvResults442, SettingR222, 2108);
QV_LAYOUT(QvResults442, SettingR222Octaves, 2244);
QV_LAYOUT(QvResults442, SettingR224, 2292);
QV_LAYOUT(QvResults442, SettingR225, 2294);
QV_LAYOUT(QvResults442, SettingR223, 2300);
QV_LAYOUT(QvResults442, SettingR219, 2304);
QV_LAYOUT(QvResults442, SettingR219Octaves, 2440);
QV_LAYOUT(QvResults442, SettingR220, 2488);
QV_LAYOUT(QvResults442, SettingR217, 2492);
QV_LAYOUT(QvResults442, SettingR218, 2496);
QV_LAYOUT(QvResults442, SettingR215, 2650);
QV_LAYOUT(QvResults442, SettingR150, 2656);
QV_LAYOUT(QvResults442, SettingR89, 2660);
QV_LAYOUT(QvResults442, SettingR162, 2668);
QV_LAYOUT(QvResults442, SettingR234, 2672);
QV_LAYOUT(QvResults442, SettingR235, 2804);
QV_LAYOUT(QvResults442, SettingR236, 2936);
QV_LAYOUT(QvResults442, SettingR237, 3068);
QV_LAYOUT(QvResults442, SettingR238, 3200);
QV_LAYOUT(QvResults442, SettingR239, 3332);
QV_LAYOUT(QvResults442, SettingR240, 3464);
QV_LAYOUT(QvResults442, SettingR3, 3488);
QV_LAYOUT(QvResults442, Reserved3539, 3539);
QV_LAYOUT(QvResults442, SettingR163, 3540);
QV_LAYOUT(QvResults442, SettingR164, 3576);
QV_LAYOUT(QvResults442, SettingR88, 3612);
QV_LAYOUT(QvResults442, SettingR158, 3616);
QV_LAYOUT(QvResults442, SettingR34, 3620);
QV_LAYOUT(QvResults442, SettingR118, 3624);
QV_LAYOUT(QvResults442, SettingR124, 3628);
QV_LAYOUT(QvResults442, SettingR119, 3660);
QV_LAYOUT(QvResults442, SettingR120, 3664);
QV_LAYOUT(QvResults442, Reserved3666, 3666);
QV_LAYOUT(QvResults442, SettingR121, 3668);
QV_LAYOUT(QvResults442, ModeFormFlag, 3672);
QV_LAYOUT(QvResults442, Reserved3674, 3674);
QV_LAYOUT(QvResults442, SettingR123, 3676);
QV_LAYOUT(QvResults442, SettingR122, 3680);
QV_LAYOUT(QvResults442, SettingR227, 3684);
QV_LAYOUT(QvResults442, SettingR228, 3688);
QV_LAYOUT(QvResults442, SettingR229, 3692);
QV_LAYOUT(QvResults442, SettingR230, 3696);
QV_LAYOUT(QvResults442, SettingR232, 3700);
QV_LAYOUT(QvResults442, SettingR233, 3704);
QV_LAYOUT(QvResults442, SettingR203, 3708);
QV_LAYOUT(QvResults442, SettingR176, 5312);

/**
 * Code 56, from item 2 of model 442 in mode 0: a summary with third-octave and octave bands.
 *
 * SectionFlags: 512 percentile levels present; 8 Span1, Span2 and SpanByte present; 256
 * Distribution present. The library clears the first 812 bytes; Distribution from byte 351 on,
 * Spectra, Span1, SpanByte and Span2 keep what the host's buffer held when their section is absent.
 * Octave sums are worked out by the library; without a second spectrum those of the second table
 * are the sums of zeros, 4.77.
 */
typedef struct QvSpectrumSummary {
  uint16_t RecordType;         /* 56 */
  uint16_t SiteNumber;         /* site in force when the record was decoded */
  int32_t RecordTime;          /* time */
  uint16_t SettingFormat;      /* always 0 */
  uint8_t Reserved10[2];       /* zero */
  float Duration;              /* s */
  uint16_t SectionFlags;       /* bits, see above */
  uint8_t Reserved18[2];       /* zero */
  float Level11;               /* level: positions 11 and 12 */
  float Level17;               /* level: positions 17 and 18 */
  float Level15;               /* level: positions 15 and 16 */
  uint16_t Model;              /* instrument model: 431, 442 or another number */
  uint16_t Byte26;             /* position 26 */
  float Level19;               /* level: positions 19 and 20 */
  uint16_t Byte24;             /* position 24 */
  uint16_t Byte23;             /* position 23 */
  uint32_t RecordIndex;        /* 1 for the first byte 2 item of the file, then 2, 3 and so on */
  float Level13;               /* level: positions 13 and 14 */
  float Level21;               /* level: positions 21 and 22 */
  uint16_t Byte25;             /* position 25 */
  uint8_t Reserved58[2];       /* zero */
  float Bands[33];             /* level: third-octave bands */
  float Octaves[11];           /* level: octave sums of Bands */
  float SecondBands[33];       /* level: third-octave bands of the second spectrum */
  float SecondOctaves[11];     /* level: octave sums of SecondBands */
  float PercentileLevels[6];   /* level: percentile levels (Ln) */
  float PercentileNumbers[6];  /* %: the n of each percentile level */
  uint8_t DistributionPresent; /* 1 when Distribution is there */
  uint8_t Distribution[384];   /* level distribution, raw bytes */
  uint8_t Unwritten845[3];     /* not written */
  float Spectra[6][33];        /* level: six spectra of third-octave bands */
  float Span1;
  uint16_t SpanByte;
  uint8_t Unwritten1646[2]; /* not written */
  float Span2;
} QvSpectrumSummary;
QV_LAYOUT_SIZE(QvSpectrumSummary, 1652);
QV_LAYOUT(QvSpectrumSummary, RecordType, 0);
QV_LAYOUT(QvSpectrumSummary, SiteNumber, 2);
QV_LAYOUT(QvSpectrumSummary, RecordTime, 4);
QV_LAYOUT(QvSpectrumSummary, SettingFormat, 8);
QV_LAYOUT(QvSpectrumSummary, Reserved10, 10);
QV_LAYOUT(QvSpectrumSummary, Duration, 12);
QV_LAYOUT(QvSpectrumSummary, SectionFlags, 16);
QV_LAYOUT(QvSpectrumSummary, Reserved18, 18);
QV_LAYOUT(QvSpectrumSummary, Level11, 20);
QV_LAYOUT(QvSpectrumSummary, Level17, 24);
QV_LAYOUT(QvSpectrumSummary, Level15, 28);
QV_LAYOUT(QvSpectrumSummary, Model, 32);
QV_LAYOUT(QvSpectrumSummary, Byte26, 34);
QV_LAYOUT(QvSpectrumSummary, Level19, 36);
QV_LAYOUT(QvSpectrumSummary, Byte24, 40);
QV_LAYOUT(QvSpectrumSummary, Byte23, 42);
QV_LAYOUT(QvSpectrumSummary, RecordIndex, 44);
QV_LAYOUT(QvSpectrumSummary, Level13, 48);
QV_LAYOUT(QvSpectrumSummary, Level21, 52);
QV_LAYOUT(QvSpectrumSummary, Byte25, 56);
QV_LAYOUT(QvSpectrumSummary, Reserved58, 58);
QV_LAYOUT(QvSpectrumSummary, Bands, 60);
QV_LAYOUT(QvSpectrumSummary, Octaves, 192);
QV_LAYOUT(QvSpectrumSummary, SecondBands, 236);
QV_LAYOUT(QvSpectrumSummary, SecondOctaves, 368);
QV_LAYOUT(QvSpectrumSummary, PercentileLevels, 412);
QV_LAYOUT(QvSpectrumSummary, PercentileNumbers, 436);
QV_LAYOUT(QvSpectrumSummary, DistributionPresent, 460);
QV_LAYOUT(QvSpectrumSummary, Distribution, 461);
QV_LAYOUT(QvSpectrumSummary, Unwritten845, 845);
QV_LAYOUT(QvSpectrumSummary, Spectra, 848);
QV_LAYOUT(QvSpectrumSummary, Span1, 1640);
QV_LAYOUT(QvSpectrumSummary, SpanByte, 1644);
QV_LAYOUT(QvSpectrumSummary, Unwritten1646, 1646);
QV_LAYOUT(QvSpectrumSummary, Span2, 1648);

/**
 * Code 57, from a list item 27: one entry of a time history of many fields.
 *
 * A marker has Level -1.0 and uses MarkerDetail and MarkerKind. A sample has Level, with
 * StreamSelector above 0 and not 4 SecondValue, with StreamSelector 4 the groups: element i of a
 * group is there when bit i of its mask is set. Table1 is there with bit 1 of StreamMaskF, Table2
 * with bit 0.
 */
typedef struct QvFieldHistory {
  uint16_t RecordType;     /* 57 */
  uint16_t SiteNumber;     /* site in force when the record was decoded */
  int32_t RecordTime;      /* time */
  uint16_t SettingFormat;  /* always 0 */
  uint16_t StreamSelector; /* 4: groups; another value above 0: SecondValue; 0: Level only */
  uint16_t StreamMaskA;    /* mask of Group1 */
  uint16_t StreamMaskB;    /* mask of Group3 */
  uint16_t StreamMaskC;    /* mask of Group5 */
  uint16_t StreamMaskE;    /* mask of Group4 */
  float Level;             /* dB; -1.0 in a marker */
  float SecondValue;       /* dB */
  float StreamPeriod;      /* s: between samples */
  uint32_t RecordIndex;    /* counts the entries of all streams, markers included */
  uint16_t MarkerDetail;   /* 0 to 15; markers only */
  uint16_t MarkerKind;     /* 0 to 7; 4 and 5 are run markers; markers only */
  float Group1[8];         /* dB */
  float Group3[8];         /* dB */
  float Group5[8];         /* dB */
  float Group2[8];         /* dB; elements 1 and 0 are plain numbers */
  float Group4[8];         /* dB; element 2 a ratio, element 1 a number in sixteenths */
  float Group6[8];         /* dB; elements 1 and 0 unused */
  uint16_t StreamMaskD;    /* mask of Group2; 0 at firmware 2.01 or below */
  uint16_t StreamMaskF;    /* mask of Group6, Table1 and Table2; 0 at firmware 2.01 or below */
  float Table1[33];        /* dB: bands */
  float Table2[33];        /* dB: bands */
} QvFieldHistory;
QV_LAYOUT_SIZE(QvFieldHistory, 500);
QV_LAYOUT(QvFieldHistory, RecordType, 0);
QV_LAYOUT(QvFieldHistory, SiteNumber, 2);
QV_LAYOUT(QvFieldHistory, RecordTime, 4);
QV_LAYOUT(QvFieldHistory, SettingFormat, 8);
QV_LAYOUT(QvFieldHistory, StreamSelector, 10);
QV_LAYOUT(QvFieldHistory, StreamMaskA, 12);
QV_LAYOUT(QvFieldHistory, StreamMaskB, 14);
QV_LAYOUT(QvFieldHistory, StreamMaskC, 16);
QV_LAYOUT(QvFieldHistory, StreamMaskE, 18);
QV_LAYOUT(QvFieldHistory, Level, 20);
QV_LAYOUT(QvFieldHistory, SecondValue, 24);
QV_LAYOUT(QvFieldHistory, StreamPeriod, 28);
QV_LAYOUT(QvFieldHistory, RecordIndex, 32);
QV_LAYOUT(QvFieldHistory, MarkerDetail, 36);
QV_LAYOUT(QvFieldHistory, MarkerKind, 38);
QV_LAYOUT(QvFieldHistory, Group1, 40);
QV_LAYOUT(QvFieldHistory, Group3, 72);
QV_LAYOUT(QvFieldHistory, Group5, 104);
QV_LAYOUT(QvFieldHistory, Group2, 136);
QV_LAYOUT(QvFieldHistory, Group4, 168);
QV_LAYOUT(QvFieldHistory, Group6, 200);
QV_LAYOUT(QvFieldHistory, StreamMaskD, 232);
QV_LAYOUT(QvFieldHistory, StreamMaskF, 234);
QV_LAYOUT(QvFieldHistory, Table1, 236);
QV_LAYOUT(QvFieldHistory, Table2, 368);

/**
 * Code 60, from an 'M' item with setup mode 7, every model but 431. Positions are those of the
 * setup block; what a byte stands for is the instrument's own where no name tells it.
 */
typedef struct QvSetupTally {
  uint16_t RecordType;      /* 60 */
  uint16_t SiteNumber;      /* site in force when the record was decoded */
  uint8_t Reserved4[4];     /* zero */
  uint16_t SettingFormat;   /* always 0 */
  uint16_t Model;           /* instrument model: 431, 442 or another number */
  uint16_t SetupHead;       /* position 0 */
  char SetupTag[8];         /* raw text: positions 1 to 8 */
  uint8_t Reserved22[2];    /* zero */
  char SetupTitle[30];      /* raw text: positions 9 to 38 */
  uint8_t Reserved54[2];    /* zero */
  uint16_t SetupMode;       /* position 39 */
  uint16_t SetupByte40;     /* position 40 */
  uint16_t SetupFlagsOut;   /* position 41: flags */
  char ClockA[10];          /* text: positions 71 to 73 */
  uint16_t SetupByte86;     /* position 86 */
  uint16_t SetupByte87;     /* position 87 */
  uint16_t SetupByte93;     /* position 93 */
  char ClockB[10];          /* text: positions 100 to 102 */
  uint16_t FlagsB;          /* position 47; from firmware above 2.01 on */
  uint16_t StreamSelector;  /* position 140; from firmware above 2.01 on */
  uint16_t PeriodValue;     /* position 141; from firmware above 2.01 on */
  uint16_t PeriodUnit;      /* position 142; from firmware above 2.01 on */
  uint16_t StreamLevelBase; /* position 181; from firmware above 2.01 on */
  uint16_t StreamMaskA;     /* position 182; from firmware above 2.01 on */
  uint16_t StreamMaskB;     /* position 184; from firmware above 2.01 on */
  uint16_t StreamMaskC;     /* position 186; from firmware above 2.01 on */
  uint8_t Reserved104[2];   /* zero */
  uint16_t StreamMaskD;     /* position 183; from firmware above 2.01 on */
  uint16_t StreamMaskE;     /* position 185; from firmware above 2.01 on */
  uint16_t StreamMaskF;     /* position 187; from firmware above 2.01 on */
  float KeptSixValues[6];   /* positions 110 to 121; from firmware above 2.01 on */
  uint8_t SetupByte188;     /* position 188; from firmware above 2.01 on */
  uint8_t SetupByte189;     /* position 189; from firmware above 2.01 on */
  uint8_t Reserved138[166]; /* zero */
} QvSetupTally;
QV_LAYOUT_SIZE(QvSetupTally, 304);
QV_LAYOUT(QvSetupTally, RecordType, 0);
QV_LAYOUT(QvSetupTally, SiteNumber, 2);
QV_LAYOUT(QvSetupTally, Reserved4, 4);
QV_LAYOUT(QvSetupTally, SettingFormat, 8);
QV_LAYOUT(QvSetupTally, Model, 10);
QV_LAYOUT(QvSetupTally, SetupHead, 12);
QV_LAYOUT(QvSetupTally, SetupTag, 14);
QV_LAYOUT(QvSetupTally, Reserved22, 22);
QV_LAYOUT(QvSetupTally, SetupTitle, 24);
QV_LAYOUT(QvSetupTally, Reserved54, 54);
QV_LAYOUT(QvSetupTally, SetupMode, 56);
QV_LAYOUT(QvSetupTally, SetupByte40, 58);
QV_LAYOUT(QvSetupTally, SetupFlagsOut, 60);
QV_LAYOUT(QvSetupTally, ClockA, 62);
QV_LAYOUT(QvSetupTally, SetupByte86, 72);
QV_LAYOUT(QvSetupTally, SetupByte87, 74);
QV_LAYOUT(QvSetupTally, SetupByte93, 76);
QV_LAYOUT(QvSetupTally, ClockB, 78);
QV_LAYOUT(QvSetupTally, FlagsB, 88);
QV_LAYOUT(QvSetupTally, StreamSelector, 90);
QV_LAYOUT(QvSetupTally, PeriodValue, 92);
QV_LAYOUT(QvSetupTally, PeriodUnit, 94);
QV_LAYOUT(QvSetupTally, StreamLevelBase, 96);
QV_LAYOUT(QvSetupTally, StreamMaskA, 98);
QV_LAYOUT(QvSetupTally, StreamMaskB, 100);
QV_LAYOUT(QvSetupTally, StreamMaskC, 102);
QV_LAYOUT(QvSetupTally, Reserved104, 104);
QV_LAYOUT(QvSetupTally, StreamMaskD, 106);
QV_LAYOUT(QvSetupTally, StreamMaskE, 108);
QV_LAYOUT(QvSetupTally, StreamMaskF, 110);
QV_LAYOUT(QvSetupTally, KeptSixValues, 112);
QV_LAYOUT(QvSetupTally, SetupByte188, 136);
QV_LAYOUT(QvSetupTally, SetupByte189, 137);
QV_LAYOUT(QvSetupTally, Reserved138, 138);

/**
 * Code 63, from an 'M' item with setup mode 5, every model but 431. Positions are those of the
 * setup block; what a byte stands for is the instrument's own where no name tells it.
 */
typedef struct QvSetupNarrow {
  uint16_t RecordType;       /* 63 */
  uint16_t SiteNumber;       /* site in force when the record was decoded */
  uint8_t Reserved4[4];      /* zero */
  uint16_t SettingFormat;    /* always 0 */
  uint16_t Model;            /* instrument model: 431, 442 or another number */
  uint16_t SetupHead;        /* position 0 */
  char SetupTag[8];          /* raw text: positions 1 to 8 */
  uint8_t Reserved22[2];     /* zero */
  char SetupTitle[30];       /* raw text: positions 9 to 38 */
  uint8_t Reserved54[2];     /* zero */
  uint16_t SetupMode;        /* position 39 */
  uint16_t SetupByte40;      /* position 40 */
  uint16_t SetupByte75;      /* position 75 */
  uint16_t SetupByte93;      /* position 93 */
  uint16_t SetupByte47Or78;  /* position 47, flag 128; from firmware above 3.115 on position 78 */
  uint16_t SetupByte47Bit64; /* position 47, flag 64 */
  uint16_t SetupWord76;      /* positions 76 to 77 */
  uint8_t Reserved70[234];   /* zero */
} QvSetupNarrow;
QV_LAYOUT_SIZE(QvSetupNarrow, 304);
QV_LAYOUT(QvSetupNarrow, RecordType, 0);
QV_LAYOUT(QvSetupNarrow, SiteNumber, 2);
QV_LAYOUT(QvSetupNarrow, Reserved4, 4);
QV_LAYOUT(QvSetupNarrow, SettingFormat, 8);
QV_LAYOUT(QvSetupNarrow, Model, 10);
QV_LAYOUT(QvSetupNarrow, SetupHead, 12);
QV_LAYOUT(QvSetupNarrow, SetupTag, 14);
QV_LAYOUT(QvSetupNarrow, Reserved22, 22);
QV_LAYOUT(QvSetupNarrow, SetupTitle, 24);
QV_LAYOUT(QvSetupNarrow, Reserved54, 54);
QV_LAYOUT(QvSetupNarrow, SetupMode, 56);
QV_LAYOUT(QvSetupNarrow, SetupByte40, 58);
QV_LAYOUT(QvSetupNarrow, SetupByte75, 60);
QV_LAYOUT(QvSetupNarrow, SetupByte93, 62);
QV_LAYOUT(QvSetupNarrow, SetupByte47Or78, 64);
QV_LAYOUT(QvSetupNarrow, SetupByte47Bit64, 66);
QV_LAYOUT(QvSetupNarrow, SetupWord76, 68);
QV_LAYOUT(QvSetupNarrow, Reserved70, 70);

/**
 * Code 66, from item 2 of model 442 in mode 7 with kind byte 0. Positions are those of the item's
 * body.
 */
typedef struct QvTallyLevels {
  uint16_t RecordType;      /* 66 */
  uint8_t Reserved2[2];     /* zero */
  uint32_t RecordIndex;     /* 1 for the first byte 2 item of the file, then 2, 3 and so on */
  int32_t RecordTime;       /* time */
  float Duration;           /* s */
  uint16_t Byte11;          /* position 11 */
  uint8_t Reserved18[2];    /* zero */
  float Levels13[9];        /* level: positions 13 to 30 */
  float Levels31[9];        /* level: positions 31 to 48 */
  float Levels49[3];        /* level: positions 49 to 54 */
  float Level57;            /* level: positions 57 and 58 */
  float Level55;            /* level: positions 55 and 56 */
  float Values59[6];        /* positions 59 to 70 */
  float Levels71[6];        /* level: positions 71 to 82 */
  uint8_t Reserved160[124]; /* zero */
} QvTallyLevels;
QV_LAYOUT_SIZE(QvTallyLevels, 284);
QV_LAYOUT(QvTallyLevels, RecordType, 0);
QV_LAYOUT(QvTallyLevels, Reserved2, 2);
QV_LAYOUT(QvTallyLevels, RecordIndex, 4);
QV_LAYOUT(QvTallyLevels, RecordTime, 8);
QV_LAYOUT(QvTallyLevels, Duration, 12);
QV_LAYOUT(QvTallyLevels, Byte11, 16);
QV_LAYOUT(QvTallyLevels, Reserved18, 18);
QV_LAYOUT(QvTallyLevels, Levels13, 20);
QV_LAYOUT(QvTallyLevels, Levels31, 56);
QV_LAYOUT(QvTallyLevels, Levels49, 92);
QV_LAYOUT(QvTallyLevels, Level57, 104);
QV_LAYOUT(QvTallyLevels, Level55, 108);
QV_LAYOUT(QvTallyLevels, Values59, 112);
QV_LAYOUT(QvTallyLevels, Levels71, 136);
QV_LAYOUT(QvTallyLevels, Reserved160, 160);

/**
 * Code 67, from item 2 of model 442 in mode 7 with kind byte 1. Positions are those of the item's
 * body.
 */
typedef struct QvTallyBands {
  uint16_t RecordType;   /* 67 */
  uint8_t Reserved2[2];  /* zero */
  uint32_t RecordIndex;  /* 1 for the first byte 2 item of the file, then 2, 3 and so on */
  int32_t RecordTime;    /* time */
  float Duration;        /* s */
  uint16_t Byte11;       /* position 11 */
  uint8_t Reserved18[2]; /* zero */
  float Bands13[33];     /* level: positions 13 to 78 */
  float Bands79[33];     /* level: positions 79 to 144 */
} QvTallyBands;
QV_LAYOUT_SIZE(QvTallyBands, 284);
QV_LAYOUT(QvTallyBands, RecordType, 0);
QV_LAYOUT(QvTallyBands, Reserved2, 2);
QV_LAYOUT(QvTallyBands, RecordIndex, 4);
QV_LAYOUT(QvTallyBands, RecordTime, 8);
QV_LAYOUT(QvTallyBands, Duration, 12);
QV_LAYOUT(QvTallyBands, Byte11, 16);
QV_LAYOUT(QvTallyBands, Reserved18, 18);
QV_LAYOUT(QvTallyBands, Bands13, 20);
QV_LAYOUT(QvTallyBands, Bands79, 152);

/**
 * Code 68, from item 2 of model 442 in mode 7 with a kind byte above 1. Positions are those of the
 * item's body.
 */
typedef struct QvTallyTotals {
  uint16_t RecordType;     /* 68 */
  uint8_t Reserved2[2];    /* zero */
  uint32_t RecordIndex;    /* 1 for the first byte 2 item of the file, then 2, 3 and so on */
  int32_t RecordTime;      /* time */
  float Duration;          /* s */
  uint16_t Byte11;         /* position 11 */
  uint16_t Word13;         /* positions 13 and 14 */
  uint16_t Word16;         /* positions 16 and 17 */
  uint8_t Reserved22[2];   /* zero */
  float Level19;           /* level: positions 19 and 20 */
  float Level21;           /* level: positions 21 and 22 */
  uint8_t Reserved32[252]; /* zero */
} QvTallyTotals;
QV_LAYOUT_SIZE(QvTallyTotals, 284);
QV_LAYOUT(QvTallyTotals, RecordType, 0);
QV_LAYOUT(QvTallyTotals, Reserved2, 2);
QV_LAYOUT(QvTallyTotals, RecordIndex, 4);
QV_LAYOUT(QvTallyTotals, RecordTime, 8);
QV_LAYOUT(QvTallyTotals, Duration, 12);
QV_LAYOUT(QvTallyTotals, Byte11, 16);
QV_LAYOUT(QvTallyTotals, Word13, 18);
QV_LAYOUT(QvTallyTotals, Word16, 20);
QV_LAYOUT(QvTallyTotals, Reserved22, 22);
QV_LAYOUT(QvTallyTotals, Level19, 24);
QV_LAYOUT(QvTallyTotals, Level21, 28);
QV_LAYOUT(QvTallyTotals, Reserved32, 32);

/**
 * Code 69, from item 2 of model 442 in mode 5: a table of 401 narrow-band levels. Positions are
 * those of the item's body.
 */
typedef struct QvNarrowTable {
  uint16_t RecordType;  /* 69 */
  uint8_t Reserved2[2]; /* zero */
  uint32_t RecordIndex; /* 1 for the first byte 2 item of the file, then 2, 3 and so on */
  int32_t RecordTime;   /* time */
  uint16_t Word6;       /* positions 6 and 7 */
  uint16_t Byte8;       /* position 8 */
  float Level9;         /* level: positions 9 and 10 */
  float Levels[401];    /* level: positions 11 to 812 */
} QvNarrowTable;
QV_LAYOUT_SIZE(QvNarrowTable, 1624);
QV_LAYOUT(QvNarrowTable, RecordType, 0);
QV_LAYOUT(QvNarrowTable, Reserved2, 2);
QV_LAYOUT(QvNarrowTable, RecordIndex, 4);
QV_LAYOUT(QvNarrowTable, RecordTime, 8);
QV_LAYOUT(QvNarrowTable, Word6, 12);
QV_LAYOUT(QvNarrowTable, Byte8, 14);
QV_LAYOUT(QvNarrowTable, Level9, 16);
QV_LAYOUT(QvNarrowTable, Levels, 20);

/**
 * Code 70, from an 'M' item with setup mode 4, every model but 431. Positions are those of the
 * setup block; what a byte stands for is the instrument's own where no name tells it. The flags of
 * position 41 are one byte here.
 */
typedef struct QvSetupSpectrum {
  uint16_t RecordType;    /* 70 */
  uint16_t SiteNumber;    /* site in force when the record was decoded */
  uint8_t Reserved4[4];   /* zero */
  uint16_t SettingFormat; /* always 0 */
  uint16_t Model;         /* instrument model: 431, 442 or another number */
  uint16_t SetupHead;     /* position 0 */
  char SetupTag[8];       /* raw text: positions 1 to 8 */
  uint8_t Reserved22[2];  /* zero */
  char SetupTitle[30];    /* raw text: positions 9 to 38 */
  uint8_t Reserved54[2];  /* zero */
  uint16_t SetupMode;     /* position 39 */
  uint16_t SetupByte40;   /* position 40 */
  uint8_t SetupFlagsByte; /* position 41: flags */
  uint8_t FlagsA;         /* position 42 */
  uint8_t FlagsC;         /* position 48 */
  uint8_t Reserved63[1];  /* zero */
  float SetupValue74;     /* positions 74 to 76; a fifth decimal of 5 or more raises the fourth */
  uint8_t SetupByte77;    /* position 77 */
  uint8_t Reserved69[1];  /* zero */
  uint16_t SetupWord78;   /* positions 78 to 79 */
  uint16_t SetupWord80;   /* positions 80 to 81 */
  uint8_t SetupByte93;    /* position 93 */
  uint8_t SetupByte94;    /* position 94 */
  uint8_t GroupBytes[3];  /* positions 95, 103 and 111 */
  uint8_t Reserved79[1];  /* zero */
  float GroupValues[3];   /* positions 104, 96 and 112 */
  float GroupFixed[3];    /* positions 106, 98 and 114 */
  uint16_t GroupWords[3]; /* positions 109, 101 and 117 */
  uint8_t SetupByte119;   /* position 119 */
  uint8_t SetupByte120;   /* position 120 */
  uint8_t SetupByte121;   /* position 121 */
  uint8_t
      SetupByte130; /* position 130, as firmware 3.112 has it: below that 2 reads 3, and 3 reads 5 */
  char SetupText122[9];     /* text: positions 122 to 129 */
  uint8_t Reserved123[181]; /* zero */
} QvSetupSpectrum;
QV_LAYOUT_SIZE(QvSetupSpectrum, 304);
QV_LAYOUT(QvSetupSpectrum, RecordType, 0);
QV_LAYOUT(QvSetupSpectrum, SiteNumber, 2);
QV_LAYOUT(QvSetupSpectrum, Reserved4, 4);
QV_LAYOUT(QvSetupSpectrum, SettingFormat, 8);
QV_LAYOUT(QvSetupSpectrum, Model, 10);
QV_LAYOUT(QvSetupSpectrum, SetupHead, 12);
QV_LAYOUT(QvSetupSpectrum, SetupTag, 14);
QV_LAYOUT(QvSetupSpectrum, Reserved22, 22);
QV_LAYOUT(QvSetupSpectrum, SetupTitle, 24);
QV_LAYOUT(QvSetupSpectrum, Reserved54, 54);
QV_LAYOUT(QvSetupSpectrum, SetupMode, 56);
QV_LAYOUT(QvSetupSpectrum, SetupByte40, 58);
QV_LAYOUT(QvSetupSpectrum, SetupFlagsByte, 60);
QV_LAYOUT(QvSetupSpectrum, FlagsA, 61);
QV_LAYOUT(QvSetupSpectrum, FlagsC, 62);
QV_LAYOUT(QvSetupSpectrum, Reserved63, 63);
QV_LAYOUT(QvSetupSpectrum, SetupValue74, 64);
QV_LAYOUT(QvSetupSpectrum, SetupByte77, 68);
QV_LAYOUT(QvSetupSpectrum, Reserved69, 69);
QV_LAYOUT(QvSetupSpectrum, SetupWord78, 70);
QV_LAYOUT(QvSetupSpectrum, SetupWord80, 72);
QV_LAYOUT(QvSetupSpectrum, SetupByte93, 74);
QV_LAYOUT(QvSetupSpectrum, SetupByte94, 75);
QV_LAYOUT(QvSetupSpectrum, GroupBytes, 76);
QV_LAYOUT(QvSetupSpectrum, Reserved79, 79);
QV_LAYOUT(QvSetupSpectrum, GroupValues, 80);
QV_LAYOUT(QvSetupSpectrum, GroupFixed, 92);
QV_LAYOUT(QvSetupSpectrum, GroupWords, 104);
QV_LAYOUT(QvSetupSpectrum, SetupByte119, 110);
QV_LAYOUT(QvSetupSpectrum, SetupByte120, 111);
QV_LAYOUT(QvSetupSpectrum, SetupByte121, 112);
QV_LAYOUT(QvSetupSpectrum, SetupByte130, 113);
QV_LAYOUT(QvSetupSpectrum, SetupText122, 114);
QV_LAYOUT(QvSetupSpectrum, Reserved123, 123);

/**
 * Code 72, from item 2 of model 442 in mode 4: the bands of one record. Positions are those of the
 * item's body.
 */
typedef struct QvBandTable {
  uint16_t RecordType;   /* 72 */
  uint8_t Reserved2[2];  /* zero */
  uint32_t RecordIndex;  /* 1 for the first byte 2 item of the file, then 2, 3 and so on */
  int32_t RecordTime;    /* time */
  uint16_t Word6;        /* positions 6 and 7 */
  char Text8[9];         /* text: positions 8 to 15 */
  uint8_t Reserved23[1]; /* zero */
  float Level16;         /* level: positions 16 and 17 */
  float Bands[33];   /* level: 33 third-octave bands when BandFlag is not 0, else 11 octave bands */
  uint16_t BandFlag; /* 128 or 0: the setup's flag 128 */
  uint8_t Reserved162[2]; /* zero */
} QvBandTable;
QV_LAYOUT_SIZE(QvBandTable, 164);
QV_LAYOUT(QvBandTable, RecordType, 0);
QV_LAYOUT(QvBandTable, Reserved2, 2);
QV_LAYOUT(QvBandTable, RecordIndex, 4);
QV_LAYOUT(QvBandTable, RecordTime, 8);
QV_LAYOUT(QvBandTable, Word6, 12);
QV_LAYOUT(QvBandTable, Text8, 14);
QV_LAYOUT(QvBandTable, Reserved23, 23);
QV_LAYOUT(QvBandTable, Level16, 24);
QV_LAYOUT(QvBandTable, Bands, 28);
QV_LAYOUT(QvBandTable, BandFlag, 160);
QV_LAYOUT(QvBandTable, Reserved162, 162);

/**
 * What a file holds: how many records of each kind its translation will deliver
 * (QV_GetRecordCount).
 *
 * Where a name of a record stands without a mode it counts that record in all modes that the other
 * fields do not name. Items go by the type bytes of the file.
 */
typedef struct QvRecordCensus {
  uint32_t LevelMarks;         /* LevelMark records */
  uint32_t LevelMarkBands;     /* LevelMarkBands records */
  uint32_t DaySummaries;       /* DaySummary records */
  uint32_t Intervals;          /* Interval records */
  uint32_t BandIntervals;      /* BandInterval records */
  uint32_t IntervalBands;      /* IntervalBands records */
  uint32_t IntervalBandSeries; /* IntervalBandSeries records */
  uint32_t BlockImages;    /* blocks in BlockImage records: 3 for each item 7, the setup's flags for
                              each item 8 */
  uint32_t Summaries;      /* Summary records */
  uint32_t SummaryBands;   /* SummaryBands records */
  uint32_t Unused40;       /* always 0 */
  uint32_t Events;         /* Event records, but those of the two other fields of that name */
  uint32_t SettingsBlocks; /* Settings records */
  uint32_t ResultsBlocks;  /* Results records of any model when the mode is not 0 */
  uint32_t StreamEntries;  /* entries of sample streams; list blocks but those of the three other
                              fields */
  uint32_t Sites;          /* Site and Site431 records */
  uint32_t References;     /* Reference and Reference431 records */
  uint32_t SetupBands431;  /* SetupBand431: 'M' items of model 431 in mode 0 */
  uint32_t SetupShorts431; /* SetupShort431: 'M' items of model 431 in mode 1 */
  uint32_t SetupLoggings431;  /* SetupLogging431: 'M' items of model 431 in modes 2 and 3 */
  uint32_t Bands431;          /* Bands431 records */
  uint32_t Summaries431;      /* Summary431 records */
  uint32_t SetupBands;        /* SetupBand: 'M' items of other models in mode 0 */
  uint32_t SetupShorts;       /* SetupShort: 'M' items of other models in mode 1 */
  uint32_t SetupLoggings;     /* SetupLogging: 'M' items of other models in modes 2 and 3 */
  uint32_t SetupSpectra;      /* SetupSpectrum: 'M' items of other models in mode 4 */
  uint32_t SetupNarrows;      /* SetupNarrow: 'M' items of other models in mode 5 */
  uint32_t SetupsMode6;       /* 'M' items of other models in mode 6; they yield no record */
  uint32_t SetupTallies;      /* SetupTally: 'M' items of other models in mode 7 */
  uint32_t SetupsMode8;       /* 'M' items of other models in mode 8; they yield no record */
  uint32_t SpectrumSummaries; /* SpectrumSummary records */
  uint32_t ListBlocksMode0;   /* list blocks (TimedSpectrum, FieldHistory) of model 442 in mode 0 */
  uint32_t BlockImagesMode0;  /* blocks in BlockImage records of model 442 in mode 0, by the setup's
                                 flags */
  uint32_t EventsMode0;       /* Event records of model 442 in mode 0 */
  uint32_t ListBlocksMode7;   /* list blocks (TimedSpectrum, FieldHistory) of model 442 in mode 7 */
  uint32_t Tallies;           /* TallyLevels, TallyBands and TallyTotals records */
  uint32_t NarrowTables;      /* NarrowTable records */
  uint32_t EventsMode5;       /* Event records in mode 5 */
  uint32_t ListBlocksMode4;   /* list blocks (TimedSpectrum, FieldHistory) of model 442 in mode 4 */
  uint32_t BandTables;        /* BandTable records */
  uint32_t ResultsBlocksMode0; /* Results records of any model in mode 0 */
} QvRecordCensus;
QV_LAYOUT_SIZE(QvRecordCensus, 164);
QV_LAYOUT(QvRecordCensus, LevelMarks, 0);
QV_LAYOUT(QvRecordCensus, LevelMarkBands, 4);
QV_LAYOUT(QvRecordCensus, DaySummaries, 8);
QV_LAYOUT(QvRecordCensus, Intervals, 12);
QV_LAYOUT(QvRecordCensus, BandIntervals, 16);
QV_LAYOUT(QvRecordCensus, IntervalBands, 20);
QV_LAYOUT(QvRecordCensus, IntervalBandSeries, 24);
QV_LAYOUT(QvRecordCensus, BlockImages, 28);
QV_LAYOUT(QvRecordCensus, Summaries, 32);
QV_LAYOUT(QvRecordCensus, SummaryBands, 36);
QV_LAYOUT(QvRecordCensus, Unused40, 40);
QV_LAYOUT(QvRecordCensus, Events, 44);
QV_LAYOUT(QvRecordCensus, SettingsBlocks, 48);
QV_LAYOUT(QvRecordCensus, ResultsBlocks, 52);
QV_LAYOUT(QvRecordCensus, StreamEntries, 56);
QV_LAYOUT(QvRecordCensus, Sites, 60);
QV_LAYOUT(QvRecordCensus, References, 64);
QV_LAYOUT(QvRecordCensus, SetupBands431, 68);
QV_LAYOUT(QvRecordCensus, SetupShorts431, 72);
QV_LAYOUT(QvRecordCensus, SetupLoggings431, 76);
QV_LAYOUT(QvRecordCensus, Bands431, 80);
QV_LAYOUT(QvRecordCensus, Summaries431, 84);
QV_LAYOUT(QvRecordCensus, SetupBands, 88);
QV_LAYOUT(QvRecordCensus, SetupShorts, 92);
QV_LAYOUT(QvRecordCensus, SetupLoggings, 96);
QV_LAYOUT(QvRecordCensus, SetupSpectra, 100);
QV_LAYOUT(QvRecordCensus, SetupNarrows, 104);
QV_LAYOUT(QvRecordCensus, SetupsMode6, 108);
QV_LAYOUT(QvRecordCensus, SetupTallies, 112);
QV_LAYOUT(QvRecordCensus, SetupsMode8, 116);
QV_LAYOUT(QvRecordCensus, SpectrumSummaries, 120);
QV_LAYOUT(QvRecordCensus, ListBlocksMode0, 124);
QV_LAYOUT(QvRecordCensus, BlockImagesMode0, 128);
QV_LAYOUT(QvRecordCensus, EventsMode0, 132);
QV_LAYOUT(QvRecordCensus, ListBlocksMode7, 136);
QV_LAYOUT(QvRecordCensus, Tallies, 140);
QV_LAYOUT(QvRecordCensus, NarrowTables, 144);
QV_LAYOUT(QvRecordCensus, EventsMode5, 148);
QV_LAYOUT(QvRecordCensus, ListBlocksMode4, 152);
QV_LAYOUT(QvRecordCensus, BandTables, 156);
QV_LAYOUT(QvRecordCensus, ResultsBlocksMode0, 160);

/**
 * The text lines at the head of a file (QV_ReadFileHeader).
 *
 * Header lines end before their first carriage return and hold 41 characters at most, '@' lines 81.
 * Lines that the file has not got are empty.
 */
typedef struct QvFileHeaderInfo {
  char HeaderLine1[42]; /* text: first line */
  char HeaderLine2[42]; /* text: model and serial number */
  char HeaderLine3[42]; /* text: firmware version */
  char HeaderLine4[42]; /* text: fourth line */
  char HeaderLine5[42]; /* text: date and time */
  char HeaderLine6[42]; /* text: mode; models 431 and 442 only */
  char TitleLine1[82];  /* text: first '@' line, the '@' replaced by a blank */
  char TitleLine2[82];  /* text: second '@' line */
  char TitleLine3[82];  /* text: third '@' line */
} QvFileHeaderInfo;
QV_LAYOUT_SIZE(QvFileHeaderInfo, 498);
QV_LAYOUT(QvFileHeaderInfo, HeaderLine1, 0);
QV_LAYOUT(QvFileHeaderInfo, HeaderLine2, 42);
QV_LAYOUT(QvFileHeaderInfo, HeaderLine3, 84);
QV_LAYOUT(QvFileHeaderInfo, HeaderLine4, 126);
QV_LAYOUT(QvFileHeaderInfo, HeaderLine5, 168);
QV_LAYOUT(QvFileHeaderInfo, HeaderLine6, 210);
QV_LAYOUT(QvFileHeaderInfo, TitleLine1, 252);
QV_LAYOUT(QvFileHeaderInfo, TitleLine2, 334);
QV_LAYOUT(QvFileHeaderInfo, TitleLine3, 416);

#undef QV_LAYOUT
#undef QV_LAYOUT_SIZE
#undef QV_LAYOUT_HOLDS

#endif
