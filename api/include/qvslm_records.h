/*
 * qvslm_records.h: the records that QVSLMTRANSLATE hands to its host.
 *
 * One struct for each kind of output record, for the text header and for the census. The first
 * field of an output record, RecordType, says which struct the host's buffer holds. Code 1 stands
 * for two of them, told apart by the file's mode: QvBandInterval in mode 4, that of a model 442
 * file whose mode line (HeaderLine6 of QvFileHeaderInfo) begins with "RTA"; else QvInterval. All
 * numbers are in the byte order of the machine and all fields naturally aligned, with every gap a
 * field of its own; qvslm_layout.h, which qvslmtranslate.h includes, has the compiler prove it.
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
 *   span    two bytes as a number: on model 442 as it is, on others times 12478 / 65536
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

/**
 * The head of a context, which hosts may read: where the walk through the file stands.
 */
typedef struct QvContextHead {
  int32_t FileOffset; /* offset in the file of the first byte that the next step reads */
  uint32_t
      BytesMissing; /* bytes that the last step used and the file does not have; 0: a whole step */
  int32_t Mode;     /* measurement mode by the mode line; 4: code 1 stands for QvBandInterval */
} QvContextHead;

/**
 * Code 1, from item 1 in every mode but 4: the results of one interval.
 *
 * Which blocks stand in the file is told by the 'Q' or 'M' item in force; IntervalFlags shows the
 * host what was there. Fields of a block that is absent are zero.
 *
 * IntervalFlags: 0x0004 auxiliary channels present (Aux0 to Aux2); 0x0008 Span1, Span2 and Byte3
 * present (on model 442 from firmware 3.6 on without Span1, and Span2 in its place); 0x0010 the
 * second auxiliary channel is enabled; 0x0100 Samples present; 0x0400 LevelC lies above the limit
 * level of register Q62 (a LevelC without a value counts as above); 0x0800 Table16 present; 0x1000
 * ThresholdOrLevel was read from the record.
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
  float Span1;                /* span: body bytes 25 and 26, or 27 and 28 with flag 0x1000 */
  uint16_t Byte3;             /* the byte behind Span2 */
  uint8_t Reserved154[2];     /* zero */
  float Span2;                /* span: behind Span1 */
  uint8_t Samples[256];       /* dB: whole decibels, ended by a 0 */
} QvInterval;

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
  uint16_t SummaryFlags;       /* bits, see above */
  uint8_t Reserved54[2];       /* zero */
  float LevelA;                /* level */
  float LevelD;                /* level */
  float LevelC;                /* level */
  float PercentileLevels[6];   /* level: percentile levels (Ln) */
  uint16_t Model;              /* instrument model: 431, 442 or another number */
  uint8_t Reserved94[2];       /* zero */
  float PercentileNumbers[6];  /* %: the n of each percentile level */
  uint16_t Byte4;              /* body byte 26 */
  uint8_t Reserved122[2];      /* zero */
  float LevelE;                /* level */
  uint16_t Byte2;              /* body byte 24 */
  uint16_t Byte1;              /* body byte 23 */
  uint32_t RecordIndex;        /* 1 for the first summary of the file, then 2, 3 and so on */
  float LevelB;                /* level */
  float LevelF;                /* level */
  uint16_t Byte3;              /* body byte 25 */
  uint8_t Reserved146[2];      /* zero */
  float Span1;                 /* span: behind Byte4, or PercentileNumbers where present */
  uint16_t Byte5;              /* the byte behind Span2 */
  uint8_t Reserved154[2];      /* zero */
  float Span2;                 /* span: behind Span1 */
  uint8_t DistributionPresent; /* 1 when Distribution is there */
  uint8_t Distribution[384];   /* level distribution, see above */
  uint8_t Reserved545[267];    /* zero */
} QvSummary;

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
  uint16_t RecordType;         /* 3 */
  uint16_t SiteNumber;         /* site in force when the record was decoded */
  int32_t RecordTime;          /* time: midnight at the start of the day */
  uint16_t SettingFormat;      /* always 0 */
  uint8_t Reserved10[2];       /* zero */
  float DayLevelC;             /* level */
  uint16_t DayFlags;           /* bits, see above */
  uint8_t Reserved18[2];       /* zero */
  float DayLevelA;             /* level */
  float DayLevelB;             /* level */
  float DayLevelE;             /* level */
  float DayLevelD;             /* level */
  float PercentileLevels[6];   /* level: percentile levels (Ln) */
  uint16_t Model;              /* instrument model: 431, 442 or another number */
  uint8_t Reserved62[2];       /* zero */
  float PercentileNumbers[6];  /* %: the n of each percentile level */
  float DayLevelF;             /* level */
  uint16_t Value2;             /* two bytes, high byte first, at the head of the hourly counters */
  uint16_t Value3;             /* two bytes, high byte first, between Value2 and HourCounts */
  uint32_t RecordIndex;        /* 1 for the first day summary of the file, then 2, 3 and so on */
  float Duration;              /* s */
  float DayLevelG;             /* level */
  float Span1;                 /* span: behind Duration, or HourLevelsC where present */
  uint16_t Value1;             /* two bytes, high byte first, behind the time of DayTimeSeconds */
  uint16_t Bytes8[8];          /* eight single bytes behind Byte2 */
  uint16_t Byte1;              /* the byte behind Span2 */
  float Span2;                 /* span: behind Span1 */
  int32_t DayTimeSeconds;      /* s: a time of day, counted from midnight */
  uint16_t Byte2;              /* the byte behind Value1 */
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
  uint8_t Block1[5120];   /* raw bytes: the first 5120 or 4096 of the body */
  uint8_t Block2[512];    /* raw bytes: the next 512 */
  uint8_t Block3[512];    /* raw bytes: the next 512 */
} QvBlockImage;

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

/**
 * Code 11, from item 129: the bands of an interval.
 *
 * BandFlags 0x2000 marks the short form: it has BandsA, BandsB but for the last three entries,
 * OverallLevel, LevelPair1, Value and ShortByte. The long form (BandFlags 0) has BandsA, BandsB,
 * BandsC and OverallLevel. What a form has not is zero.
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
  float Span1;                 /* span: positions 27 and 28, or 51 and 52 with flag 512 */
  uint16_t SpanByte;           /* the byte behind Span2 */
  uint8_t Unwritten1646[2];    /* not written */
  float Span2;                 /* span: behind Span1 */
} QvSpectrumSummary;

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

#endif
