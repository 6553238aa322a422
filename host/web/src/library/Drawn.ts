// The pieces that the library says are drawn, as a reply to getDrawn tells them.

export const enum DrawnKind {
  Start = 0,
  End = 1,
  Empty = 2,
  Text = 3,
  Character = 4,
  Placeholder = 5,
  Object = 6,
  Hidden = 7,
}

export interface Drawn {
  kind: DrawnKind;
  start: number;
  end: number;
  isStop: boolean;
  text: string;
}
