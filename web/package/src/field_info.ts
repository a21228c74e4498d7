/** What a number of a field is in memory. */
export type FieldType = "u8" | "u16" | "u32" | "i32" | "f32" | "char";

/** What a field holds; of a level 999 stands for no value, and raw text may fill its field. */
export type FieldKind = "plain" | "level" | "dB" | "time" | "s" | "%" | "text" | "raw text";

export interface FieldInfo {
  readonly name: string;
  readonly type: FieldType;
  readonly kind: FieldKind;
  readonly offset: number;
  /** First dimension of a table of two; 0 for all other fields. */
  readonly rows: number;
  /** Elements of an array (of a row, in a table of two); 0 for a single value. */
  readonly count: number;
  readonly reserved: boolean;
  readonly comment: string;
}

export interface RecordInfo {
  readonly name: string;
  /** Type code; 0 for what is no output record. */
  readonly code: number;
  readonly size: number;
  readonly fields: readonly FieldInfo[];
}

/** Where records of code 1 are counted in mode 4. */
export const bandIntervals = 256;
