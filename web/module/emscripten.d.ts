// What the compiler makes of the program: web/module/program.ts alone knows it.
declare module 'igs-program' {
  interface OpenFile {
    readonly fd: number;
  }
  interface Device {
    open(): void;
    close(): void;
    read(): number;
    write(stream: OpenFile, bytes: Int8Array, offset: number, length: number): number;
  }
  export interface FileSystem {
    ignorePermissions: boolean;
    mkdir(path: string): void;
    analyzePath(path: string): { readonly exists: boolean };
    mkdev(path: string, device: number): void;
    makedev(major: number, minor: number): number;
    registerDevice(device: number, operations: Device): void;
    chdir(path: string): void;
    open(path: string, flags: string): OpenFile;
    close(stream: OpenFile): void;
    getStream(descriptor: number): OpenFile;
    readdir(path: string): string[];
    readFile(path: string): Uint8Array<ArrayBuffer>;
    writeFile(path: string, data: Uint8Array, options: { canOwn: boolean }): void;
  }
  export interface Instance {
    readonly FS: FileSystem;
    readonly ENV: Record<string, string>;
    callMain(words: string[]): number;
  }
  interface Host {
    instantiateWasm(imports: WebAssembly.Imports, receive: (instance: WebAssembly.Instance) => void): object;
    quit(status: number, reason: Error): never;
    preRun: ((instance: Instance) => void)[];
    onAbort(reason: unknown): void;
    print(line: string): void;
    printErr(line: string): void;
  }
  const makeIgs: (host: Host) => Promise<Instance>;
  export default makeIgs;
}
