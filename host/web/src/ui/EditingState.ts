// What a toolbar shows, as the library tells it.

export interface Format {
  name: string;
  value: string;
  isMixed: boolean;
}

export interface TableState {
  canDeleteRow: boolean;
  canDeleteColumn: boolean;
  canDecreaseColSpan: boolean;
  canDecreaseRowSpan: boolean;
}

export const enum ListType {
  Numbers = 0,
  Bullets = 1,
  None = 2,
}

export interface EditingState {
  formats: Format[];
  list: ListType;
  isInTable: boolean;
  isInStaticContent: boolean;
  hasSelection: boolean;
  isProtected: boolean;
  canUndo: boolean;
  canRedo: boolean;
  canCut: boolean;
  canPaste: boolean;
  table: TableState | null;
}

/** A button of two states; mixed where what is selected has both. */
export type Pressed = boolean | "mixed";

export function formatOf(state: EditingState, name: string): Format | undefined {
  return state.formats.find(each => each.name === name);
}
