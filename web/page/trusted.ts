// Addresses of scripts that the page may run beside its own. Browsers that know trusted types take them from here alone.

interface Policies {
  createPolicy(
    name: string,
    rules: { createScriptURL(address: string): string },
  ): { createScriptURL(address: string): string };
}

const rules = { createScriptURL: (address: string): string => address };
const policies = (globalThis as { trustedTypes?: Policies }).trustedTypes;
const trusted = policies?.createPolicy('igs-workers', rules) ?? rules;

export const serviceWorkerAddress = trusted.createScriptURL('service_worker.js');

/** An address of a script whose text is given. It lasts as long as the page. */
export function addressOfScript(text: string): string {
  return trusted.createScriptURL(URL.createObjectURL(new Blob([text], { type: 'text/javascript' })));
}
